#pragma once
// An r47d of the test's own: in a private folder, without levels unless asked for, ended with the test.

#include "virtual/ControlClient.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <vector>

class RunningR47
{
public:
    explicit RunningR47(QStringList options = {"--rate", "0"})
    {
        qputenv("R47_DIR", mFolder.path().toLocal8Bit());
        options << "--dir" << mFolder.path() << "--with-parent";
        options.prepend(R47D);
        std::vector<QByteArray> texts;
        texts.reserve(static_cast<std::size_t>(options.size()));
        for (const QString& option : options)
            texts.push_back(option.toLocal8Bit());
        std::vector<char*> arguments;
        arguments.reserve(texts.size() + 1);
        for (QByteArray& text : texts)
            arguments.push_back(text.data());
        arguments.push_back(nullptr);
        // Not QProcess: under the thread sanitizer no thread can be started after its fork.
        if (posix_spawn(&mPid, R47D, nullptr, nullptr, arguments.data(), environ) != 0)
            qFatal("r47d can not be started");
        mControl = std::make_unique<r47::ControlClient>(mFolder.path().toStdString(), 10000);
    }
    ~RunningR47()
    {
        if (mPid > 0)
            kill(mPid, SIGTERM);
        if (waitForEnd() < 0)
            kill(mPid, SIGKILL);
        waitForEnd();
    }

    /// The exit code once it has ended, -1 when it goes on for 5 s.
    int waitForEnd()
    {
        QElapsedTimer timer;
        timer.start();
        int status = 0;
        while (mPid > 0 && timer.elapsed() < 5000) {
            if (waitpid(mPid, &status, WNOHANG) == mPid) {
                mPid = 0;
                mExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 255;
            } else {
                QTest::qSleep(2);
            }
        }
        return mPid > 0 ? -1 : mExitCode;
    }

    pid_t pid() const { return mPid; }
    QString path(const QString& name) const { return mFolder.filePath(name); }
    r47::Reply tell(const QString& line) { return mControl->command(line.toStdString(), 20000); }
    /// The text of the answer; a failed test and nothing when the command was not done.
    QByteArray ask(const QString& line)
    {
        const r47::Reply reply = tell(line);
        if (!reply)
            QTest::qFail(qPrintable(line + ": " + QString::fromStdString(reply.text)), __FILE__, __LINE__);
        return QByteArray::fromStdString(reply ? reply.text : std::string());
    }

private:
    QTemporaryDir mFolder;
    pid_t mPid = 0;
    int mExitCode = -1;
    std::unique_ptr<r47::ControlClient> mControl;
};
