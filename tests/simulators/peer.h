#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane::simulators {

/// The workstation's end of the line, written from the protocol's text for these tests alone. Everything
/// throws std::runtime_error when the other end does not do its part within some seconds.
class Peer {
  public:
    explicit Peer(const QString& device, char acknowledge = 0x10);
    ~Peer();
    Q_DISABLE_COPY_MOVE(Peer)

    void open();
    void close();
    void send(const QByteArray& bytes);
    /// This many bytes, or those that came before the other end went away or fell silent.
    QByteArray receive(int count);

    void startLink();                            ///< sends the link start and receives the acknowledge
    void sendMessage(const QByteArray& message); ///< sends the frame alone
    void receiveAnnouncement();                  ///< receives acknowledge and announcement
    void acknowledge();
    QByteArray receiveFrame(); ///< up to the second check byte
    /// A whole exchange on a freshly opened port; gives the reply without its stuffing.
    QByteArray exchange(const QByteArray& message);

    /// The message as it goes on the line.
    static QByteArray frame(const QByteArray& message);

  private:
    void expect(const QByteArray& received, const QByteArray& wanted, const char* what);

    QByteArray device_;
    char acknowledge_;
    int line_ = -1;
};

} // namespace kelvane::simulators
