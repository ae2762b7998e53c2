#include "strips/input/PillSelector.h"

#include "app/GlobalFont.h"
#include "controls/FocusMarked.h"

#include <QFocusEvent>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct Pill {
    const char* name;
    const char* caption;
};
constexpr std::array<Pill, 3> kPills{{{"Mic1", "Mic 1"}, {"Mic35", "Mic-3.5"}, {"MicHP", "Mic-HP"}}};

constexpr double kGap = 0.12;        // between pills, of the width of one
constexpr double kCaptionEnd = 0.86; // the lamp of a lit pill stands below
constexpr double kRadius = 0.25;     // of the pictures' corners, of the width
constexpr QColor kCaptionOff{161, 161, 161};
constexpr QColor kCaptionLit{222, 222, 222};

/// A pill with its caption along it. Its looks are a picture for each state.
class PillButton : public quillon::FocusMarked<QPushButton>
{
public:
    explicit PillButton(QWidget* parent) : FocusMarked(parent)
    {
        setCheckable(true);
        setAutoExclusive(true);
        setAutoDefault(false);
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::StrongFocus);
        setMinimumSize(1, 1);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawPixmap(0, 0, picture(isChecked()));
        const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        const double radius = width() * kRadius;
        if (isDown() || underMouse()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(isDown() ? QColor(0, 0, 0, 72) : QColor(255, 255, 255, 20));
            painter.drawRoundedRect(plate, radius, radius);
        }
        if (mFocus.isShown()) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(FocusMark::color(), 1.5));
            painter.drawRoundedRect(plate.adjusted(1, 1, -1, -1), radius, radius);
        }
        painter.setPen(isChecked() ? kCaptionLit : kCaptionOff);
        painter.setFont(font());
        painter.translate(0, height() * kCaptionEnd);
        painter.rotate(-90);
        painter.drawText(QRectF(0, 0, height() * kCaptionEnd, width()), Qt::AlignCenter, text());
    }
    void resizeEvent(QResizeEvent* event) override
    {
        QPushButton::resizeEvent(event);
        mPictures = {};
    }

private:
    const QPixmap& picture(bool lit)
    {
        QPixmap& kept = mPictures[lit ? 1 : 0];
        const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
        if (kept.size() != size) {
            const QPixmap drawn(lit ? u":/Icon/VerticalRoundedRectGreen.png"_s : u":/Icon/VerticalRoundedRectBlack.png"_s);
            kept = drawn.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            kept.setDevicePixelRatio(devicePixelRatioF());
        }
        return kept;
    }

    std::array<QPixmap, 2> mPictures; // off, lit
};

} // namespace

PillSelector::PillSelector(QWidget* parent) : QWidget(parent)
{
    for (std::size_t i = 0; i < kPills.size(); ++i) {
        auto* button = new PillButton(this);
        button->setObjectName(u"button"_s + QLatin1StringView(kPills[i].name));
        button->setText(QLatin1StringView(kPills[i].caption));
        mButtons[i] = button;
        // Not clicked(): assistive technology toggles a button without a click.
        connect(button, &QPushButton::toggled, this, [this, button, name = QString::fromLatin1(kPills[i].name)](bool checked) {
            if (checked && std::exchange(mSelected, button) != button && !signalsBlocked()) {
                emit stateChanged(name, u"1"_s);
            }
        });
    }
}

void PillSelector::setState(const QString& button, const QString&, bool emitSignal)
{
    if (auto* selected = findChild<QAbstractButton*>(u"button"_s + button)) {
        const QSignalBlocker quiet(emitSignal ? nullptr : this);
        selected->setChecked(true);
    }
}

QString PillSelector::getState(const QString&) const
{
    return mSelected ? mSelected->objectName().sliced(6) : QString();
}

void PillSelector::setLanguage(const QString&) {}

void PillSelector::setFont(const QFont& font)
{
    mFont = font;
    layout();
}

void PillSelector::setAccessibleName(const QString& prefix)
{
    QWidget::setAccessibleName(prefix);
    for (QAbstractButton* button : mButtons) {
        button->setAccessibleName(prefix + u' ' + button->text());
    }
}

void PillSelector::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layout();
}

void PillSelector::layout()
{
    const double pill = width() / (kPills.size() + kGap * (kPills.size() - 1));
    QFont fitted = mFont;
    const QRect room(0, 0, static_cast<int>(height() * (kCaptionEnd - 0.06)), static_cast<int>(pill * 0.9));
    fitted.setPixelSize(std::max(GlobalFont::instance().pixelSizeForRect(mFont, QString::fromLatin1(kPills[1].caption), room), 1));
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        const int left = static_cast<int>(static_cast<double>(i) * pill * (1 + kGap));
        mButtons[i]->setGeometry(left, 0, static_cast<int>(pill), height());
        mButtons[i]->setFont(fitted);
    }
}

} // namespace quillon
