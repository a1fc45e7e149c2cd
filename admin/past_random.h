#pragma once

#include <random>

namespace kelvane::admin {

/// Numbers that look random and are the same with every compiler: those of one seed always come in one order.
class PastRandom {
  public:
    explicit PastRandom(unsigned seed) : engine_(seed) {}

    /// Between 0 and 1, without 1.
    double fraction() { return static_cast<double>(engine_()) / 4294967296.0; }
    double between(double low, double high) { return low + (high - low) * fraction(); }
    /// A whole number from `low` to `high`, both included.
    int whole(int low, int high) { return low + static_cast<int>((high - low + 1) * fraction()); }
    /// Around 0 with a standard deviation of 1, and never further off than 3.5.
    double deviation() {
        constexpr double widthOfSum = 1.7320508075688772; // of four numbers, so that their deviation is 1
        double sum = -2;
        for (int number = 0; number < 4; ++number)
            sum += fraction();
        return sum * widthOfSum;
    }

  private:
    std::mt19937 engine_; // its numbers are laid down; those of the library's distributions are not
};

} // namespace kelvane::admin
