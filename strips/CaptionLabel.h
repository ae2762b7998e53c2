#pragma once

#include <QLabel>

namespace quillon
{

/// A word beside a control, as large as its place allows. GUI thread.
class CaptionLabel : public QLabel
{
    Q_OBJECT
public:
    explicit CaptionLabel(QWidget* parent);

    void setCaption(const QString& text);
    /// The face; the size follows from the place.
    void setFace(const QFont& font);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    QFont mFace;
};

} // namespace quillon
