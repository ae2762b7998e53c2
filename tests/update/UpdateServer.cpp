#include "tests/update/UpdateServer.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

QByteArray contentOf(const QString& name)
{
    QFile file(QStringLiteral(CERTIFICATES) + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

UpdateServer::UpdateServer(const QString& certificate)
{
    if (!certificate.isEmpty()) {
        mTls.setLocalCertificate(QSslCertificate(contentOf(certificate + u".pem"_s)));
        mTls.setPrivateKey(QSslKey(contentOf(certificate + u".key"_s), QSsl::Ec));
    }
    listen(QHostAddress::LocalHost);
}

void UpdateServer::trustAuthority()
{
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificate(QSslCertificate(contentOf(u"authority.pem"_s)));
    QSslConfiguration::setDefaultConfiguration(trusting);
}

QUrl UpdateServer::url(const QString& path) const
{
    return QUrl(u"%1://127.0.0.1:%2%3"_s.arg(mTls.isNull() ? u"http"_s : u"https"_s).arg(serverPort()).arg(path));
}

void UpdateServer::incomingConnection(qintptr handle)
{
    auto* socket = new QSslSocket(this);
    socket->setSocketDescriptor(handle);
    connect(socket, &QSslSocket::readyRead, this, [this, socket] { serve(*socket); });
    connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
    if (!mTls.isNull()) {
        socket->setSslConfiguration(mTls);
        socket->startServerEncryption();
    }
}

void UpdateServer::serve(QTcpSocket& socket)
{
    const QByteArray request = socket.property("request").toByteArray() + socket.readAll();
    socket.setProperty("request", request);
    if (!request.endsWith("\r\n\r\n")) {
        return;
    }
    const QString path = QString::fromUtf8(request.split(' ').value(1));
    asked += path;
    send(socket, answers.value(path, {.status = "404 Not Found", .headers = {}, .pieces = {"nothing here"}}));
}

void UpdateServer::send(QTcpSocket& socket, const Answer& answer)
{
    QByteArray head = "HTTP/1.1 " + answer.status + "\r\nConnection: close\r\n";
    if (answer.isSized) {
        head += "Content-Length: " + QByteArray::number(answer.pieces.join().size()) + "\r\n";
    }
    for (const QByteArray& header : answer.headers) {
        head += header + "\r\n";
    }
    socket.write(head + "\r\n");
    int at = 0;
    for (const QByteArray& piece : answer.pieces) {
        QTimer::singleShot(at += answer.pauseMs, &socket, [&socket, piece] { socket.write(piece); });
    }
    if (!answer.stalls) {
        QTimer::singleShot(at, &socket, [&socket] { socket.disconnectFromHost(); });
    }
}
