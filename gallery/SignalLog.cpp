#include "gallery/SignalLog.h"

#include <QStringList>
#include <QWidget>

#include <cstdio>

namespace quillon::gallery
{

void SignalLog::watch(QObject* control, const QString& name)
{
    const QMetaObject* meta = control->metaObject();
    for (int i = QWidget::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() != QMetaMethod::Signal)
            continue;
        QMetaObject::connect(control, i, this, staticMetaObject.methodCount() + int(mLines.size()), Qt::DirectConnection);
        mLines << Line{name, meta->method(i)};
    }
}

int SignalLog::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod || id >= mLines.size())
        return id;
    const Line& line = mLines[id];
    QStringList texts;
    for (int i = 0; i < line.signal.parameterCount(); ++i)
        texts << QVariant(line.signal.parameterMetaType(i), arguments[i + 1]).toString();
    printLine(line.name + QLatin1StringView(": ") + QLatin1StringView(line.signal.name()) + u'(' +
              texts.join(QLatin1StringView(", ")) + u')');
    return -1;
}

void printLine(const QString& line)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace quillon::gallery
