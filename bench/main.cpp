// One measurement on the r47d of $R47_DIR: its figures as one line of JSON. bench/run calls it and makes the table.

#include "bench/Harness.h"
#include "equalizer/EqualizerBench.h"

#include <QApplication>
#include <QJsonDocument>
#include <cstdio>

namespace
{

struct Command {
    const char* name;
    const char* arguments;
    QJsonObject (*run)(const QStringList& arguments);
};

constexpr Command kCommands[]{
    {"change", "SAMPLES", bench::changeToFrame},
    {"inbound", "SAMPLES", bench::inboundToControl},
    {"flood", "COUNT PER_SECOND", bench::floodConsole},
    {"flood-reader", "COUNT PER_SECOND", bench::floodReader},
    {"writer", "FRAMES", bench::writerRate},
    {"load", "ROUNDS", bench::loadWorkspace},
    {"page", "ROUNDS", bench::loadPage},
    {"meters", "own|naive|empty HZ SECONDS", bench::runMeters},
    {"equalizer", "ROUNDS", bench::equalizerCurves},
    {"arrive", "", bench::arrive},
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString name = arguments.isEmpty() ? QString() : arguments.takeFirst();
    for (const Command& command : kCommands) {
        if (name == QLatin1StringView(command.name) &&
            arguments.size() == QString(command.arguments).split(' ', Qt::SkipEmptyParts).size()) {
            std::puts(QJsonDocument(command.run(arguments)).toJson(QJsonDocument::Compact).constData());
            return 0;
        }
    }
    for (const Command& command : kCommands) {
        std::fprintf(stderr, "quillon-bench %s %s\n", command.name, command.arguments);
    }
    return 2;
}
