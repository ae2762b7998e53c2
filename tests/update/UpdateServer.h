#pragma once
// A web server of a test's own: answers each path as it is told, with whatever manners a server may have.

#include <QHash>
#include <QMetaType>
#include <QSslConfiguration>
#include <QStringList>
#include <QTcpServer>
#include <QUrl>

struct Answer {
    QByteArray status = "200 OK";
    QList<QByteArray> headers;
    QList<QByteArray> pieces; // of the body
    int pauseMs = 0;          // before each piece
    bool isSized = true;      // announces the size of all pieces
    bool stalls = false;      // goes silent in place of ending

    static Answer of(const QByteArray& body) { return {.headers = {}, .pieces = {body}}; }
    static Answer redirect(const QByteArray& to) { return {.status = "302 Found", .headers = {"Location: " + to}, .pieces = {}}; }
};

class UpdateServer : public QTcpServer
{
    Q_OBJECT
public:
    /// Speaks HTTPS with the certificate of that name, or HTTP when there is none. On a port of its own.
    explicit UpdateServer(const QString& certificate);

    /// Makes this process trust the authority of the tests.
    static void trustAuthority();

    QUrl url(const QString& path) const;

    QHash<QString, Answer> answers; // by path; others are 404
    QStringList asked;              // paths, in order

protected:
    void incomingConnection(qintptr handle) override;

private:
    void serve(QTcpSocket& socket);
    void send(QTcpSocket& socket, const Answer& answer);

    QSslConfiguration mTls;
};
Q_DECLARE_METATYPE(Answer)
