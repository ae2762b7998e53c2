#pragma once

#include "controls/dial/DialFace.h"

#include <QWidget>

class QLineEdit;

/// Dial with plain steps or a list of values, drawn with pictures; its value can be typed in after a press of the right
/// button. Setters emit nothing. GUI thread.
class DialS1M5 : public QWidget, public quillon::PlainDialFace
{
    Q_OBJECT
public:
    explicit DialS1M5(QWidget* parent = nullptr);
    ~DialS1M5() override;

    using quillon::PlainDialFace::setFont;
    /// Ascending; its ends become the range.
    void setValueList(const QList<float>& list);
    /// 0 continuous, 1 list; others are ignored.
    void setMode(int mode);
    /// The text that has to fit into the dial.
    void setFitText(const QString& text);
    /// Ignored unless above 0 and at most the range.
    void setDragStep(float step);
    void setKeyStep(float step);
    void setWheelStep(float step);
    /// On: the right button opens the editor. The validator is that of the range as it is now.
    void setEditEnabled(bool enabled);
    /// Decimals that can be typed, from 0. To be called after setEditEnabled, whose validator it replaces.
    void setEditPrecision(int decimals);

signals:
    /// The user has changed the value.
    void valueChanged(float value);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void in_mLineEdit_editingFinished();

private:
    void openEditor();
    void placeEditor();
    void closeEditor();

    QLineEdit* mLineEdit = nullptr;
    int mEditPrecision = 0;
    bool mEditEnabled = false;
    bool mEditing = false;
};
