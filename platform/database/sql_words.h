#pragma once

#include <QStringView>

namespace kelvane {

/// Words of the program's own source, for tables of them. The compiler refuses what is known only at run
/// time.
class SqlWords {
  public:
    template <std::size_t length>
    consteval SqlWords(const char16_t (&words)[length]) // NOLINT(*-explicit-*)
        : words_(words, length - 1) {}
    constexpr QStringView view() const { return words_; }

  private:
    QStringView words_;
};

} // namespace kelvane
