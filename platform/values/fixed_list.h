#pragma once

#include "platform/error.h"

#include <QList>
#include <QStringList>

#include <vector>

namespace kelvane {

/// A list of fixed size with the index range 0 to Last. Using an index beyond it is error 9, "Subscript
/// out of range"; the list then keeps what it had. Entries that were never written are default values, so
/// that a reader ends at the first empty entry.
template <class T, int Last>
class FixedList {
  public:
    static constexpr int last = Last;

    /// The entry to write to.
    T& operator[](int index) {
        const auto place = checkIndex(index);
        if (place >= entries_.size())
            entries_.resize(place + 1);
        return entries_[place];
    }
    /// The entry to read.
    const T& operator[](int index) const {
        static const T empty{};
        const auto place = checkIndex(index);
        return place < entries_.size() ? entries_[place] : empty;
    }
    /// Makes every entry empty.
    void erase() { entries_.clear(); }

  private:
    static std::size_t checkIndex(int index) {
        if (index < 0 || index > Last)
            throw makeError(ErrorNumber::subscriptOutOfRange);
        return static_cast<std::size_t>(index);
    }
    std::vector<T> entries_;
};

/// The texts of a list before its first empty entry.
template <int Last>
QStringList entriesOf(const FixedList<QString, Last>& list) {
    QStringList entries;
    for (int index = 0; index <= Last && !list[index].isEmpty(); ++index)
        entries << list[index];
    return entries;
}

/// Adds an empty entry to a list of at most `maxSize` entries and gives it. A full list is error 9 and keeps
/// what it has.
template <class T>
T& addEntry(QList<T>& list, qsizetype maxSize) {
    if (list.size() >= maxSize)
        throw makeError(ErrorNumber::subscriptOutOfRange);
    return list.emplace_back();
}

} // namespace kelvane
