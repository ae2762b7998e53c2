#pragma once

#include <QFrame>
#include <QPixmap>

namespace quillon
{
/// The frame of a group: shows one picture, scaled into its rectangle. GUI thread.
///
/// Pictures are scaled once per size and shared by all groups of the process, so that showing another one is a look-up.
class PlatePicture : public QFrame
{
    Q_OBJECT
public:
    explicit PlatePicture(QWidget* parent);

    /// A resource path; empty shows nothing. Repaints only if it is another one.
    void setPicture(const QString& path);
    const QString& picture() const { return mPath; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString mPath;
};
} // namespace quillon
