#pragma once

#include <QLabel>
#include <QPixmap>

namespace quillon
{
/// The picture before a button of an input selector: grey, and in the accent colour while its input is selected. GUI thread.
class PlateIcon : public QLabel
{
    Q_OBJECT
public:
    /// svg is a resource name; only its shape counts, the colour is the state's.
    PlateIcon(const QString& svg, QWidget* parent);

    void setLit(bool lit);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QString mSvg;
    bool mLit = false;
};
} // namespace quillon
