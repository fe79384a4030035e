#include <figura/figure/SimpleBorder.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/PixmapFigure.h>

#include <figureprobe.h>
#include <recordingdevice.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QStyleOptionViewItem>
#include <QTest>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

using Probe = SizeProbe<PixmapFigure>;

const QSize UNLIMITED(0x7FFFFFF, 0x7FFFFFF);

QPixmap pixmap(int width, int height, const QColor &color = Qt::red)
{
    QPixmap result(width, height);
    result.fill(color);
    return result;
}

void expectRefusal(const char *operation)
{
    const QByteArray text =
        QByteArray("Figure::") + operation + QByteArray("(): size out of bound");
    QTest::ignoreMessage(QtDebugMsg, text.constData());
}

// What the pixmap says is not what it needs.
class FramedPixmap : public Probe
{
public:
    using Probe::Probe;
    QSize calculateContentSize() override { return QSize(31, 17); }
};

} // namespace

class tst_PixmapFigure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void withoutAPixmapThereIsNoSizeAndAWhiteGround();
    void constructorTakesPixmapParentAndGround();
    void nullPixmapGivenToTheConstructorIsASizeOfNothing();
    void firstPixmapFixesAllThreeSizes();
    void marginIsAddedToTheSizes();
    void borderCountsOnlyForTheComputedPreferredSize();
    void sizesAreSetInOrderBeforeValidationAndPainting();
    void overriddenContentSizeIsHonoured();
    void contentSizeIsThatOfThePixmap();
    void largerPixmapRaisesOnlyTheMaximum();
    void smallerPixmapIsRefusedAsPreferredSizeOnly();
    void pixmapThatIsOnlyWiderIsRefusedInAllThree();
    void pixmapThatIsOnlyLowerShrinks();
    void secondPixmapOfTheSameSizeIsAcceptedSilently();
    void refusedPixmapIsShownAllTheSame();
    void newPixmapIsReportedToTheUpdateManager();
    void pixmapIsStretchedToTheBounds();
    void nullPixmapDrawsNothing();
};

void tst_PixmapFigure::withoutAPixmapThereIsNoSizeAndAWhiteGround()
{
    QObject owner;

    auto *figure = new PixmapFigure(&owner);

    QCOMPARE(figure->parent(), &owner);
    QVERIFY(figure->getPixmap().isNull());
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::white));
    QCOMPARE(figure->getMinimumSize(), QSize(0, 0));
    QCOMPARE(figure->getMaximumSize(), UNLIMITED);
}

void tst_PixmapFigure::constructorTakesPixmapParentAndGround()
{
    QObject owner;

    auto *figure = new PixmapFigure(pixmap(16, 12), &owner, Qt::yellow);

    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getPixmap().size(), QSize(16, 12));
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::yellow));
    QCOMPARE(figure->getMaximumSize(), QSize(16, 12));
}

void tst_PixmapFigure::nullPixmapGivenToTheConstructorIsASizeOfNothing()
{
    PixmapFigure figure((QPixmap()));

    QCOMPARE(figure.getMaximumSize(), QSize(0, 0));
    QCOMPARE(figure.getPreferredSize(), QSize(0, 0));
}

void tst_PixmapFigure::firstPixmapFixesAllThreeSizes()
{
    PixmapFigure figure;

    figure.setPixmap(pixmap(16, 16));

    QCOMPARE(figure.getPreferredSize(), QSize(16, 16));
    QCOMPARE(figure.getMinimumSize(), QSize(16, 16));
    QCOMPARE(figure.getMaximumSize(), QSize(16, 16));
}

void tst_PixmapFigure::marginIsAddedToTheSizes()
{
    PixmapFigure figure;
    figure.setMargin(3);

    figure.setPixmap(pixmap(16, 10));

    QCOMPARE(figure.getPreferredSize(), QSize(22, 16));
    QCOMPARE(figure.getMinimumSize(), QSize(22, 16));
    QCOMPARE(figure.getMaximumSize(), QSize(22, 16));
}

// The limits leave the border out, and the maximum then cuts it off the preferred size, too.
void tst_PixmapFigure::borderCountsOnlyForTheComputedPreferredSize()
{
    Probe figure;
    SimpleBorder border(nullptr, 2);
    figure.setBorder(&border);

    figure.setPixmap(pixmap(16, 16));

    QCOMPARE(figure.getMinimumSize(), QSize(16, 16));
    QCOMPARE(figure.getPreferredSize(), QSize(16, 16));
    figure.setMaximumSize(UNLIMITED);
    QCOMPARE(figure.getPreferredSize(), QSize(20, 20));
}

void tst_PixmapFigure::sizesAreSetInOrderBeforeValidationAndPainting()
{
    Probe figure;
    figure.setMargin(1);

    figure.setPixmap(pixmap(16, 10));

    QCOMPARE(figure.log,
             QStringList({QStringLiteral("preferred 18x12"), QStringLiteral("minimum 18x12"),
                          QStringLiteral("maximum 18x12"), QStringLiteral("revalidate"),
                          QStringLiteral("repaint")}));
}

void tst_PixmapFigure::overriddenContentSizeIsHonoured()
{
    FramedPixmap figure;

    figure.setPixmap(pixmap(16, 10));

    QCOMPARE(figure.getMaximumSize(), QSize(31, 17));
}

void tst_PixmapFigure::contentSizeIsThatOfThePixmap()
{
    Probe figure;
    figure.setMargin(5);

    figure.setPixmap(pixmap(16, 10));

    QCOMPARE(figure.calculateContentSize(), QSize(16, 10));
}

// The limits of the first pixmap are in the way of the second, on purpose.
void tst_PixmapFigure::largerPixmapRaisesOnlyTheMaximum()
{
    PixmapFigure figure(pixmap(16, 16));
    expectRefusal("setPreferredSize");
    expectRefusal("setMinimumSize");

    figure.setPixmap(pixmap(32, 24));

    QCOMPARE(figure.getMinimumSize(), QSize(16, 16));
    QCOMPARE(figure.getMaximumSize(), QSize(32, 24));
    QCOMPARE(figure.getPreferredSize(), QSize(32, 24));
}

void tst_PixmapFigure::smallerPixmapIsRefusedAsPreferredSizeOnly()
{
    PixmapFigure figure(pixmap(16, 16));
    expectRefusal("setPreferredSize");

    figure.setPixmap(pixmap(8, 6));

    QCOMPARE(figure.getMinimumSize(), QSize(8, 6));
    QCOMPARE(figure.getMaximumSize(), QSize(8, 6));
    QCOMPARE(figure.getPreferredSize(), QSize(8, 6));
}

void tst_PixmapFigure::pixmapThatIsOnlyWiderIsRefusedInAllThree()
{
    PixmapFigure figure(pixmap(16, 16));
    expectRefusal("setPreferredSize");
    expectRefusal("setMinimumSize");
    expectRefusal("setMaximumSize");

    figure.setPixmap(pixmap(32, 8));

    QCOMPARE(figure.getMinimumSize(), QSize(16, 16));
    QCOMPARE(figure.getMaximumSize(), QSize(16, 16));
    QCOMPARE(figure.getPreferredSize(), QSize(16, 16));
}

void tst_PixmapFigure::pixmapThatIsOnlyLowerShrinks()
{
    PixmapFigure figure(pixmap(16, 16));
    expectRefusal("setPreferredSize");

    figure.setPixmap(pixmap(16, 8));

    QCOMPARE(figure.getMinimumSize(), QSize(16, 8));
    QCOMPARE(figure.getMaximumSize(), QSize(16, 8));
}

void tst_PixmapFigure::secondPixmapOfTheSameSizeIsAcceptedSilently()
{
    Probe figure(pixmap(16, 16, Qt::red));

    figure.setPixmap(pixmap(16, 16, Qt::blue));

    QCOMPARE(figure.getPreferredSize(), QSize(16, 16));
    QCOMPARE(figure.getPixmap().toImage().pixelColor(3, 3), QColor(Qt::blue));
    QCOMPARE(figure.log.size(), 5);
}

void tst_PixmapFigure::refusedPixmapIsShownAllTheSame()
{
    Probe figure(pixmap(16, 16));
    expectRefusal("setPreferredSize");
    expectRefusal("setMinimumSize");
    expectRefusal("setMaximumSize");

    figure.setPixmap(pixmap(32, 8));

    QCOMPARE(figure.getPixmap().size(), QSize(32, 8));
    QCOMPARE(figure.log.mid(3),
             QStringList({QStringLiteral("revalidate"), QStringLiteral("repaint")}));
}

void tst_PixmapFigure::newPixmapIsReportedToTheUpdateManager()
{
    RecordingUpdateManager manager;
    RootFigure root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    PixmapFigure figure;
    root.add(&figure);
    figure.setBounds(QRect(10, 10, 40, 40));
    manager.clear();

    figure.setPixmap(pixmap(16, 16));

    QCOMPARE(manager.invalidFigures(), QList<Figure *>{&root});
    QCOMPARE(manager.dirtyRects(&figure), QList<QRect>{QRect(10, 10, 40, 40)});
}

void tst_PixmapFigure::pixmapIsStretchedToTheBounds()
{
    PixmapFigure figure(pixmap(16, 10), nullptr, Qt::transparent);
    figure.setMargin(4);
    figure.setBounds(QRect(30, 40, 50, 60));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 500, 500);

    const QList<PaintCall> calls =
        record([&](QPainter *painter) { figure.render(painter, option); });

    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].kind, PaintCall::Pixmap);
    QCOMPARE(calls[0].rects, QList<QRectF>{QRectF(30, 40, 50, 60)});
    QCOMPARE(calls[0].source, QRectF(0, 0, 16, 10));
    QCOMPARE(calls[0].pixmap.cacheKey(), figure.getPixmap().cacheKey());
    QVERIFY(!calls[0].isTiled);
}

void tst_PixmapFigure::nullPixmapDrawsNothing()
{
    PixmapFigure figure;
    figure.setBackgroundColor(Qt::transparent);
    figure.setBounds(QRect(30, 40, 50, 60));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 500, 500);

    const QList<PaintCall> calls =
        record([&](QPainter *painter) { figure.render(painter, option); });

    QCOMPARE(calls.size(), 0);
}

QTEST_MAIN(tst_PixmapFigure)
#include "tst_pixmapfigure.moc"
