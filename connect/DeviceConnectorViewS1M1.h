#pragma once

#include "connect/DeviceConnectorViewBase.h"

#include <bitset>
#include <vector>

class QProgressBar;
class QStackedWidget;

namespace quillon
{
struct ConnectRow;
}

/// The connection view: thirteen pages of a message and perhaps buttons, a check box or a bar, built from one table. GUI thread.
class DeviceConnectorViewS1M1 : public DeviceConnectorViewBase
{
    Q_OBJECT
public:
    explicit DeviceConnectorViewS1M1(QWidget* parent = nullptr);

    void setFont(QFont font) override;
    void setLanguage(QString language) override;
    void setVersions(QString current, QString available) override;
    void setProgressText(QString text) override;
    void setProgressValue(int value) override;
    void setProgressMessage(QString text) override;
    int currentPage() const override;
    void setPage(int page) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Item {
        const quillon::ConnectRow* row;
        QWidget* widget;
    };

    void buildPage(int page);
    QWidget* buildWidget(const quillon::ConnectRow& row, QWidget* page);
    void connectEvent(const quillon::ConnectRow& row, QWidget* widget);
    void fit();
    void fitPage(int number);
    void fitItem(const Item& item);
    void setText(const Item& item, const QString& text);
    void setText(QLatin1StringView object, const QString& text);

    QStackedWidget* mStack;
    QProgressBar* mProgress = nullptr;
    std::vector<Item> mItems;
    std::bitset<quillon::ConnectPageCount> mFitted; // by page: whether its texts have their sizes
    QFont mFont;
    QString mLanguage;
};
