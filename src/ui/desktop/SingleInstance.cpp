// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/SingleInstance.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 5s;
constexpr auto kPause = 50ms;
constexpr int kReplyTimeout = 2000;
constexpr const char* kTaken = "ok";
constexpr const char* kEnding = "ending";

QString socketName(const QString& key) {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (folder.isEmpty()) folder = QDir::tempPath();
  const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex();
  return QDir(folder).filePath("korvel-" + QString::fromLatin1(hash.left(16)));
}

/// The first process may still be starting, so that its socket is not there yet.
bool connectTo(QLocalSocket& socket, const QString& name) {
  const QDeadlineTimer deadline(kPatience);
  while (!deadline.hasExpired()) {
    socket.connectToServer(name);
    if (socket.waitForConnected(kReplyTimeout)) return true;
    QThread::msleep(static_cast<unsigned long>(kPause.count()));
  }
  return false;
}

}  // namespace

SingleInstance::SingleInstance(const QString& key, QObject* parent)
    : QObject(parent), m_name(socketName(key)), m_lock(m_name + ".lock") {
  m_lock.setStaleLockTime(0);  // a lock is stale when its process is gone, not when it is old
  connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::take);
}

bool SingleInstance::becomeFirst() {
  // Where no lock can be made nobody can hold it; the store has a lock of its own.
  if (!m_lock.tryLock(0) && m_lock.error() == QLockFile::LockFailedError) return false;
  QLocalServer::removeServer(m_name);
  m_server.setSocketOptions(QLocalServer::UserAccessOption);
  m_server.listen(m_name);
  return true;
}

bool SingleInstance::handOver(const QStringList& files) {
  QLocalSocket socket;
  if (!connectTo(socket, m_name)) return false;
  QByteArray message;
  QDataStream stream(&message, QIODevice::WriteOnly);
  stream << files;
  socket.write(message);
  return socket.waitForBytesWritten(kReplyTimeout) && socket.waitForReadyRead(kReplyTimeout) &&
         socket.readAll() == kTaken;
}

void SingleInstance::take() {
  QLocalSocket* socket = m_server.nextPendingConnection();
  connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
    QDataStream stream(socket);
    stream.startTransaction();
    QStringList files;
    stream >> files;
    if (!stream.commitTransaction()) return;
    socket->write(m_ending ? kEnding : kTaken);
    socket->flush();
    if (!m_ending) emit startedAgain(files);
  });
}

}  // namespace korvel::ui
