#pragma once

#include <QObject>
#include <memory>

namespace quillon
{

/// Knows whether the desktop has a place for tray icons, also when its panel comes later than this program. GUI thread.
class TrayPlace : public QObject
{
    Q_OBJECT
public:
    explicit TrayPlace(QObject* parent = nullptr);
    ~TrayPlace() override;

    /// Never waits for the desktop: false until it has answered.
    bool isThere() const;

signals:
    /// There may be a place now, or the one that was there has gone.
    void changed();

private:
    struct Watch;
    std::unique_ptr<Watch> mWatch;
};

} // namespace quillon
