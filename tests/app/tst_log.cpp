#include "app/LogHandler.h"

#include <QTemporaryFile>
#include <QTest>

#include <cstdio>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

class TestLog : public QObject
{
    Q_OBJECT

private slots:
    void linesAreWhole()
    {
        // Green warnings, and a percent sign stays one.
        QCOMPARE(quillon::formatLogLine(QtWarningMsg, u"5 %s"_s), QByteArray("\033[32m[Warning]\t 5 %s\033[0m\n"));
        constexpr int ThreadCount = 4;
        constexpr int LineCount = 500;
        QTemporaryFile file;
        QVERIFY(file.open());
        const int terminal = ::dup(2);
        QVERIFY(::dup2(file.handle(), 2) == 2);
        const QtMessageHandler before = qInstallMessageHandler(nullptr);
        quillon::installLogHandler();
        std::vector<std::thread> threads;
        threads.reserve(ThreadCount);
        for (int i = 0; i < ThreadCount; ++i) {
            threads.emplace_back([i] {
                const QString text(200, QChar(u'a' + i));
                for (int line = 0; line < LineCount; ++line) {
                    qWarning("%ls", qUtf16Printable(text));
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        qInstallMessageHandler(before);
        ::dup2(terminal, 2);
        ::close(terminal);

        QFile written(file.fileName());
        QVERIFY(written.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = written.readAll().split('\n');
        QCOMPARE(lines.size(), ThreadCount * LineCount + 1);
        for (const QByteArray& line : lines.first(ThreadCount * LineCount)) {
            QCOMPARE(line + '\n', quillon::formatLogLine(QtWarningMsg, QString(200, QLatin1Char(line.at(line.size() / 2)))));
        }
    }
};

QTEST_GUILESS_MAIN(TestLog)
#include "tst_log.moc"
