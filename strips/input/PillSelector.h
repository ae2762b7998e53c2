#pragma once

#include <QFont>
#include <QWidget>
#include <array>

class QAbstractButton;

namespace quillon
{

/// The microphone of a strip that lies: three upright pills, one of them lit. Speaks as the panels of buttons do. GUI thread.
class PillSelector : public QWidget
{
    Q_OBJECT
public:
    explicit PillSelector(QWidget* parent);

    /// Selects the button, whatever the state; tells if asked to and if it is another one.
    void setState(const QString& button, const QString& state, bool emitSignal);
    /// Name of the selected button, to any argument; empty before the first selection.
    QString getState(const QString& button = {}) const;
    /// The captions are the same in every language.
    void setLanguage(const QString& language);
    /// The face; the size follows from the pills'.
    void setFont(const QFont& font);
    /// The strip's name, with which each button is announced.
    void setAccessibleName(const QString& prefix);

signals:
    void stateChanged(QString button, QString state);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layout();

    std::array<QAbstractButton*, 3> mButtons{};
    QAbstractButton* mSelected = nullptr;
    QFont mFont;
};

} // namespace quillon
