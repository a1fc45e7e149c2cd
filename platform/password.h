#pragma once

#include <QByteArray>

namespace kelvane {

/// A password in UTF-8, wiped from memory at its end. It can be moved and not copied.
class Password {
  public:
    explicit Password(QByteArray utf8) : utf8_(std::move(utf8)) {}
    Password(Password&& other) noexcept : utf8_(std::move(other.utf8_)) {}
    Password& operator=(Password&&) = delete;
    ~Password() { utf8_.fill('\0'); }

    const QByteArray& utf8() const { return utf8_; }

  private:
    QByteArray utf8_;
};

} // namespace kelvane
