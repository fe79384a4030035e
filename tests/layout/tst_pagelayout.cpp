#include <figura/layout/PageLayout.h>

#include <recordingdevice.h>

#include <QPainter>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class BarePageLayout : public PageLayout
{
public:
    using PageLayout::PageLayout;
    int decorated = 0;

    void decoratePage(QPainter *, const QVariant &) override { ++decorated; }
};

// A device whose two resolutions differ.
class Page : public RecordingDevice
{
public:
    Page(const QSize &size, int dpiX, int dpiY)
        : RecordingDevice(size, dpiY)
        , m_dpiX(dpiX)
    {
    }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmDpiX ? m_dpiX : RecordingDevice::metric(metric);
    }

private:
    int m_dpiX;
};

} // namespace

class tst_PageLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void nullPainterGivesAnEmptyRectangle();
    void contentLeavesTwentyMillimetresOnEverySide_data();
    void contentLeavesTwentyMillimetresOnEverySide();
    void paintersTransformDoesNotMatter();
    void askingForTheContentDecoratesNothing();
    void layoutFollowsItsParent();
};

void tst_PageLayout::nullPainterGivesAnEmptyRectangle()
{
    BarePageLayout layout;

    QVERIFY(layout.getContentRect(nullptr).isEmpty());
}

void tst_PageLayout::contentLeavesTwentyMillimetresOnEverySide_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("dpiX");
    QTest::addColumn<int>("dpiY");
    QTest::addColumn<QRectF>("expected");

    // 20 mm are 0.787... inches; a fraction of a pixel is cut off.
    QTest::newRow("a sheet at 600 dpi")
        << QSize(4960, 7016) << 600 << 600 << QRectF(472, 472, 4016, 6072);
    QTest::newRow("a sheet at 300 dpi")
        << QSize(2480, 3508) << 300 << 300 << QRectF(236, 236, 2008, 3036);
    QTest::newRow("a screen") << QSize(800, 600) << 96 << 96 << QRectF(75, 75, 650, 450);
    QTest::newRow("cut off, not rounded")
        << QSize(1000, 1000) << 71 << 71 << QRectF(55, 55, 890, 890);
    QTest::newRow("the vertical resolution counts")
        << QSize(1000, 1000) << 600 << 72 << QRectF(56, 56, 888, 888);
    QTest::newRow("landscape") << QSize(7016, 4960) << 600 << 600 << QRectF(472, 472, 6072, 4016);
    QTest::newRow("too small") << QSize(100, 200) << 96 << 96 << QRectF(75, 75, -50, 50);
}

void tst_PageLayout::contentLeavesTwentyMillimetresOnEverySide()
{
    QFETCH(QSize, size);
    QFETCH(int, dpiX);
    QFETCH(int, dpiY);
    QFETCH(QRectF, expected);
    Page page(size, dpiX, dpiY);
    QPainter painter(&page);
    BarePageLayout layout;

    QCOMPARE(layout.getContentRect(&painter), expected);
}

void tst_PageLayout::paintersTransformDoesNotMatter()
{
    Page page(QSize(4960, 7016), 600, 600);
    QPainter painter(&page);
    painter.translate(100, 100);
    painter.scale(2, 2);
    BarePageLayout layout;

    QCOMPARE(layout.getContentRect(&painter), QRectF(472, 472, 4016, 6072));
}

void tst_PageLayout::askingForTheContentDecoratesNothing()
{
    Page page(QSize(4960, 7016), 600, 600);
    QPainter painter(&page);
    BarePageLayout layout;

    layout.getContentRect(&painter);
    painter.end();

    QCOMPARE(layout.decorated, 0);
    QVERIFY(page.calls().isEmpty());
}

void tst_PageLayout::layoutFollowsItsParent()
{
    QObject owner;

    auto *layout = new BarePageLayout(&owner);

    QCOMPARE(layout->parent(), &owner);
    QCOMPARE(BarePageLayout().parent(), nullptr);
}

QTEST_MAIN(tst_PageLayout)
#include "tst_pagelayout.moc"
