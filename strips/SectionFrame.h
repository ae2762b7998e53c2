#pragma once

#include <QWidget>

namespace quillon
{

/// The frame round controls that belong together; stands behind them. GUI thread.
class SectionFrame : public QWidget
{
    Q_OBJECT
public:
    explicit SectionFrame(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillon
