#include "console/picture/R47_PrivateWidget6.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr QColor kLight{67, 207, 124};

// Where the lamps are, row by row from the top; the last row runs to the left.
constexpr const char* kLamps = R"({"groups": [
  {"y": 111.46, "elements": [
    {"x": 74.28, "y": 111.46, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 111.46, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 111.46, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 111.46, "width": 3.4, "height": 3.4}]},
  {"y": 122.79, "elements": [
    {"x": 74.28, "y": 122.79, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 122.79, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 122.79, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 122.79, "width": 3.4, "height": 3.4}]},
  {"y": 134.13, "elements": [
    {"x": 74.28, "y": 134.13, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 134.13, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 134.13, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 134.13, "width": 3.4, "height": 3.4}]},
  {"y": 145.47, "elements": [
    {"x": 74.28, "y": 145.47, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 145.47, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 145.47, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 145.47, "width": 3.4, "height": 3.4}]},
  {"y": 156.81, "elements": [
    {"x": 74.28, "y": 156.81, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 156.81, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 156.81, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 156.81, "width": 3.4, "height": 3.4}]},
  {"y": 168.15, "elements": [
    {"x": 74.28, "y": 168.15, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 168.15, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 168.15, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 168.15, "width": 3.4, "height": 3.4}]},
  {"y": 179.49, "elements": [
    {"x": 74.28, "y": 179.49, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 179.49, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 179.49, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 179.49, "width": 3.4, "height": 3.4}]},
  {"y": 190.83, "elements": [
    {"x": 74.28, "y": 190.83, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 190.83, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 190.83, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 190.83, "width": 3.4, "height": 3.4}]},
  {"y": 202.16, "elements": [
    {"x": 74.28, "y": 202.16, "width": 3.4, "height": 3.4}, {"x": 88.45, "y": 202.16, "width": 3.4, "height": 3.4},
    {"x": 116.8, "y": 202.16, "width": 3.4, "height": 3.4}, {"x": 130.97, "y": 202.16, "width": 3.4, "height": 3.4}]},
  {"y": 219.17, "elements": [
    {"x": 43.1, "y": 219.17, "width": 3.4, "height": 3.4}, {"x": 82.78, "y": 219.17, "width": 3.4, "height": 3.4},
    {"x": 122.47, "y": 219.17, "width": 3.4, "height": 3.4}]},
  {"y": 227.68, "elements": [
    {"x": 43.1, "y": 227.68, "width": 3.4, "height": 3.4}, {"x": 82.78, "y": 227.68, "width": 3.4, "height": 3.4},
    {"x": 122.47, "y": 227.68, "width": 3.4, "height": 3.4}]},
  {"y": 236.18, "elements": [
    {"x": 43.1, "y": 236.18, "width": 3.4, "height": 3.4}, {"x": 82.78, "y": 236.18, "width": 3.4, "height": 3.4},
    {"x": 122.47, "y": 236.18, "width": 3.4, "height": 3.4}]},
  {"y": 251.77, "elements": [
    {"x": 43.1, "y": 251.77, "width": 3.4, "height": 3.4}, {"x": 82.78, "y": 251.77, "width": 3.4, "height": 3.4}]},
  {"y": 260.27, "elements": [
    {"x": 43.1, "y": 260.27, "width": 3.4, "height": 3.4}, {"x": 82.78, "y": 260.27, "width": 3.4, "height": 3.4},
    {"x": 122.47, "y": 260.27, "width": 3.4, "height": 3.4}, {"x": 162.15, "y": 260.27, "width": 3.4, "height": 3.4}]},
  {"y": 402.7, "elements": [
    {"x": 153.7, "y": 402.7, "width": 3.4, "height": 3.4}, {"x": 102.7, "y": 402.7, "width": 3.4, "height": 3.4},
    {"x": 52.7, "y": 402.7, "width": 3.4, "height": 3.4}]}
]})";

QList<QRectF> parsedLamps()
{
    QList<QRectF> lamps;
    const QJsonArray groups = QJsonDocument::fromJson(kLamps).object()["groups"_L1].toArray();
    for (const auto& group : groups) {
        const QJsonArray elements = group.toObject()["elements"_L1].toArray();
        for (const auto& entry : elements) {
            const QJsonObject element = entry.toObject();
            lamps += QRectF(element["x"_L1].toDouble(), element["y"_L1].toDouble(), element["width"_L1].toDouble(),
                            element["height"_L1].toDouble());
        }
    }
    return lamps;
}

} // namespace

R47_PrivateWidget6::R47_PrivateWidget6(QWidget* parent)
    : QWidget(parent), mLamps(parsedLamps()), mPicture(u":/Icon/R47Device.svg"_s)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void R47_PrivateWidget6::start(int ms)
{
    mPeriod = std::max(ms, 1);
    if (isVisible()) {
        mTimer.start(mPeriod, this);
    }
}

void R47_PrivateWidget6::stop()
{
    mPeriod = 0;
    mTimer.stop();
}

void R47_PrivateWidget6::showEvent(QShowEvent* event)
{
    if (mPeriod > 0) {
        mTimer.start(mPeriod, this);
    }
    QWidget::showEvent(event);
}

void R47_PrivateWidget6::hideEvent(QHideEvent* event)
{
    mTimer.stop();
    QWidget::hideEvent(event);
}

void R47_PrivateWidget6::resizeEvent(QResizeEvent* event)
{
    const double wr = double(width()) / kPictureSize.width();
    const double hr = double(height()) / kPictureSize.height();
    mScaled.clear();
    for (const QRectF& lamp : mLamps) {
        mScaled += QRectF(lamp.x() * wr, lamp.y() * hr, lamp.width() * wr, lamp.height() * hr);
    }
    QWidget::resizeEvent(event);
}

void R47_PrivateWidget6::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != mTimer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    const qsizetype count = mScaled.size();
    const qsizetype first = (mFirst + 1) % ((count - 1) / 2);
    const qsizetype last = (mLast + 1) % count;
    QRegion changed; // a step changes two lamps as a rule, of a picture a hundred times their size
    for (qsizetype i = 0; i < count; ++i) {
        if (isLit(i) != (first <= i && i <= last)) {
            changed += mScaled[i].toAlignedRect().adjusted(-1, -1, 1, 1);
        }
    }
    mFirst = first;
    mLast = last;
    update(changed);
}

void R47_PrivateWidget6::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, mPicture.at(size(), devicePixelRatioF(), palette().color(QPalette::Window)));
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kLight);
    for (qsizetype i = 0; i < mScaled.size(); ++i) {
        if (isLit(i) && event->region().intersects(mScaled[i].toAlignedRect())) {
            painter.drawEllipse(mScaled[i].center(), mScaled[i].width() / 2, mScaled[i].height() / 2);
        }
    }
}
