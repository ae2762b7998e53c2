#include "controls/MessageBoxParts.h"

#include "app/GlobalFont.h"

#include <QLabel>
#include <QPainter>
#include <QPixmapCache>
#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

const QColor kAccent(67, 207, 124);
constexpr int kLightMargin = 8; // pixels at both sides of a line of a light box

void paintRadioMark(QPainter& painter, const QRectF& mark, bool checked, const QColor& ink)
{
    const double pen = std::max(1.0, mark.width() * 0.09);
    painter.setPen(QPen(ink, pen));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(mark.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2));
    if (!checked)
        return;
    const double inset = mark.width() * 0.26;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawEllipse(mark.adjusted(inset, inset, -inset, -inset));
}

void paintCheckMark(QPainter& painter, const QRect& mark, bool checked)
{
    const QString source = checked ? u":/Icon/CheckBox_Checked.png"_s : u":/Icon/CheckBox_Uncheck.png"_s;
    const double ratio = painter.device()->devicePixelRatio();
    const QString key = source + u'@' + QString::number(mark.width()) + u'x' + QString::number(ratio);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(source).scaled(mark.size() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
        QPixmapCache::insert(key, picture);
    }
    painter.drawPixmap(mark.topLeft(), picture);
}

} // namespace

AnswerButton::AnswerButton(QWidget* parent, const AnswerLook& look) : QPushButton(parent), mLook(look)
{
    setAttribute(Qt::WA_Hover);
    setMinimumSize(1, 1);
}

void AnswerButton::setLook(const AnswerLook& look)
{
    mLook = look;
    update();
}

void AnswerButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hovered = underMouse() && isEnabled();
    const double radius = hovered ? std::max(mLook.radius, 3) : mLook.radius;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? mLook.plate.darker(125) : mLook.plate);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(Qt::NoBrush);
    if (hovered) {
        painter.setPen(QPen(Qt::gray, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
    }
    if (hasFocus()) {
        painter.setPen(QPen(mLook.text, 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(3.25, 3.25, -3.25, -3.25), radius, radius);
    }
    painter.setPen(mLook.text);
    painter.setFont(font());
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

void paintChoice(QAbstractButton& choice, int side, bool isRound)
{
    QPainter painter(&choice);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const int gap = int(side * kChoiceGap);
    const QRect mark(gap / 2, (choice.height() - side) / 2, side, side);
    const QColor ink = choice.palette().color(QPalette::Active, QPalette::WindowText);
    if (isRound)
        paintRadioMark(painter, mark, choice.isChecked(), ink);
    else
        paintCheckMark(painter, mark, choice.isChecked());
    painter.setPen(ink);
    painter.setFont(choice.font());
    const QRect text = choice.rect().adjusted(mark.right() + gap, 0, 0, 0);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, choice.text());
    if (choice.hasFocus()) {
        const int width = text.x() + choice.fontMetrics().horizontalAdvance(choice.text()) + gap / 2;
        const double inset = std::max(0.0, (choice.height() - side * 1.7) / 2);
        const QRectF ring(0.75, inset + 0.75, std::min(width, choice.width()) - 1.5, choice.height() - 2 * inset - 1.5);
        painter.setPen(QPen(isRound ? ink : kAccent, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(ring, 4, 4);
    }
}

BoxLayout layoutEqualRows(QSize size, int lineCount)
{
    BoxLayout layout;
    const double row = size.height() / double(lineCount + 1);
    const auto top = [row](int i) { return int(std::lround(row * i)); };
    for (int i = 0; i < lineCount; ++i)
        layout.lines.emplace_back(0, top(i), size.width(), top(i + 1) - top(i));
    const int gap = int(row * 0.25);
    const int width = (size.width() - 3 * gap) / 2;
    const int height = std::max(1, int(row) - gap);
    for (int i = 0; i < 2; ++i)
        layout.answers[std::size_t(i)] = QRect(gap + i * (width + gap), top(lineCount), width, height);
    return layout;
}

BoxLayout layoutWeightedRows(QSize size, const std::vector<double>& weights)
{
    constexpr double kSide = 0.06; // margins and gaps in shares of the width and the height
    constexpr double kTop = 0.05;
    constexpr double kFoot = 0.76;
    constexpr double kAnswerHeight = 0.16;
    constexpr double kTallestLine = 0.15;
    BoxLayout layout;
    const double w = size.width();
    const double h = size.height();
    const double total = std::accumulate(weights.begin(), weights.end(), 0.0);
    const double room = h * (kFoot - kTop * 1.6);
    const double unit = total > 0 ? std::min(room / total, h * kTallestLine) : 0;
    double top = h * kTop + (room - unit * total) / 2;
    for (const double weight : weights) {
        layout.lines.push_back(QRectF(w * kSide, top, w * (1 - 2 * kSide), unit * weight).toRect());
        top += unit * weight;
    }
    const double gap = w * kSide * 0.6;
    const double width = (w * (1 - 2 * kSide) - gap) / 2;
    for (int i = 0; i < 2; ++i)
        layout.answers[std::size_t(i)] = QRectF(w * kSide + i * (width + gap), h * kFoot, width, h * kAnswerHeight).toRect();
    return layout;
}

int pointsForAll(const QFont& font, int points, const std::vector<std::pair<QString, QSize>>& texts)
{
    for (const auto& [text, place] : texts)
        if (!text.isEmpty() && place.width() > 0)
            points = std::min(points, GlobalFont::instance().pointSizeForRect(font, text, QRect(QPoint(), place)));
    return std::max(points, 1);
}

void setInk(QWidget* widget, const QColor& color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, color);
    widget->setPalette(palette);
}

void BoxBody::setFont(const QFont& font)
{
    QWidget::setFont(font);
    relayout();
}

QLabel* BoxBody::addLabel()
{
    auto* label = new QLabel(this);
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText); // a name is the user's own text
    addLine(label);
    return label;
}

AnswerButton* BoxBody::addAnswer(const AnswerLook& look)
{
    auto* button = new AnswerButton(this, look);
    button->setAutoDefault(true);
    mAnswers.append(button);
    return button;
}

void BoxBody::setDefaultAnswer(int answer)
{
    mDefaultAnswer = answer;
    mAnswers[answer]->setDefault(true);
}

void BoxBody::showEvent(QShowEvent* event)
{
    QWidget* before = mLines.last();
    for (QWidget* button : std::as_const(mAnswers)) {
        button->setAccessibleDescription(question());
        setTabOrder(before, button);
        before = button;
    }
    mAnswers[mDefaultAnswer]->setFocus(Qt::OtherFocusReason);
    QWidget::showEvent(event);
}

void BoxBody::resizeEvent(QResizeEvent*)
{
    relayout();
}

LightBoxBody::LightBoxBody(QWidget* parent) : BoxBody(parent)
{
    const QColor grey(166, 166, 166);
    addAnswer({Qt::black, grey});
    addAnswer({grey, Qt::black});
}

void LightBoxBody::setButtonText(int button, const QString& text)
{
    if (button < 0 || button >= mAnswers.size())
        return;
    mAnswers[button]->setText(text);
    relayout();
}

void LightBoxBody::setButtonColors(int button, const QColor& text, const QColor& background)
{
    if (button >= 0 && button < mAnswers.size())
        mAnswers[button]->setLook({text, background, mAnswers[button]->look().radius});
}

void LightBoxBody::relayout()
{
    const BoxLayout layout = layoutEqualRows(size(), kLineCount);
    std::vector<std::pair<QString, QSize>> texts;
    for (int i = 0; i < mLines.size(); ++i) {
        const auto [text, taken] = lineText(i);
        texts.emplace_back(text, layout.lines[std::size_t(i)].size() - QSize(taken + kLightMargin * 2, 0));
    }
    for (int i = 0; i < mAnswers.size(); ++i)
        texts.emplace_back(mAnswers[i]->text(), layout.answers[std::size_t(i)].size() * 0.9);
    QFont fitted = font();
    fitted.setPointSize(pointsForAll(font(), startPoints(layout.lines.front().size()), texts));
    const auto place = [&fitted](QWidget* widget, const QRect& rect) {
        widget->setGeometry(rect);
        widget->setFont(fitted);
    };
    for (int i = 0; i < mLines.size(); ++i)
        place(mLines[i], layout.lines[std::size_t(i)].adjusted(kLightMargin, 0, -kLightMargin, 0));
    for (int i = 0; i < mAnswers.size(); ++i)
        place(mAnswers[i], layout.answers[std::size_t(i)]);
}

void dressLightBox(FramelessWindow& window)
{
    window.setStretch(2, 10);
    window.setTitleBackground(Qt::black);
    window.setTitleTextColor(QColor(166, 166, 166));
    window.setBodyBackground(QColor(204, 204, 204));
    window.setModal(true);
}

} // namespace quillon
