#pragma once

#include <QFont>
#include <QWidget>
#include <array>

class QLabel;

namespace quillon
{

class PlateButton;

/// Which source is lowered by which microphone: a switch for each, sources downward, microphones across. GUI thread.
class DuckingMap : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kColumns = 2;
    static constexpr int kRows = 8;

    explicit DuckingMap(QWidget* parent = nullptr);

    /// What a switch is called in the workspace: "IN1AUX".
    static QString key(int column, int row);

    bool isOn(int column, int row) const;
    /// Shows a state without a signal.
    void setOn(int column, int row, bool on);
    /// Shows or hides the sources above Playback 1/2. What they are set to stays.
    void setUpperPlaybackVisible(bool visible);
    void setChinese(bool chinese);
    void setFace(const QFont& font);

signals:
    /// The user, or a client on his behalf, has switched one.
    void switched(int column, int row);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Row {
        QLabel* label = nullptr;
        std::array<PlateButton*, kColumns> plates{};
    };

    void layoutRows();
    void fitTexts();

    std::array<Row, kRows> mRows;
    QFont mFace;
    bool mUpperVisible = true;
};

} // namespace quillon
