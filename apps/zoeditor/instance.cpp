// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "instance.h"

#include <unistd.h>

#include <QDataStream>
#include <QFileInfo>
#include <QLocalSocket>

namespace zoeditor {

namespace {

constexpr int patience = 2000;                       // Milliseconds for an editor that is busy.
constexpr qint64 largest = qint64(16) * 1024 * 1024; // Bytes of one message: nobody names more files.

} // namespace

Instance::Instance(const QString& name, QObject* parent)
    : QObject(parent), m_name(name.isEmpty() ? QStringLiteral("zoeditor-%1").arg(::getuid()) : name)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &Instance::take);
}

bool Instance::handOver(const QStringList& files)
{
    QLocalSocket socket;
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(patience)) {
        QLocalServer::removeServer(m_name); // Of an editor that died.
        m_server.listen(m_name);            // Refused: this one hears of no other, and works.
        return false;
    }
    QStringList absolute;
    for (const QString& file : files)
        absolute.append(QFileInfo(file).absoluteFilePath());
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << absolute;
    socket.write(message);
    socket.disconnectFromServer();
    return socket.state() == QLocalSocket::UnconnectedState || socket.waitForDisconnected(patience);
}

void Instance::take()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        const auto read = [this, socket] {
            socket->deleteLater();
            const QByteArray message = socket->read(largest);
            QDataStream stream(message);
            stream.setVersion(QDataStream::Qt_5_15);
            QStringList files;
            stream >> files;
            if (stream.status() == QDataStream::Ok)
                emit filesHandedOver(files);
        };
        if (socket->state() == QLocalSocket::UnconnectedState)
            read();
        else
            connect(socket, &QLocalSocket::disconnected, this, read);
    }
}

} // namespace zoeditor
