#include <figura/layout/StackLayout.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/LayeredPane.h>

#include <logcapture.h>

#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

enum class Side { Above, Beneath };

void addAt(LayeredPane &pane, Side side, Layer *layer, const QString &key, Layer *neighbour)
{
    if (side == Side::Above)
        pane.addLayerAbove(layer, key, neighbour);
    else
        pane.addLayerBeneath(layer, key, neighbour);
}

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

// Remembers through which operation a layer came.
class ForwardingPane : public LayeredPane
{
public:
    Layer *lastNeighbour = nullptr;
    int above = 0;

    void addLayerAbove(Layer *layer, const QString &key, Layer *neighbour) override
    {
        ++above;
        lastNeighbour = neighbour;
        LayeredPane::addLayerAbove(layer, key, neighbour);
    }
};

// Two layers that are in, and one to be added.
struct Pane
{
    Pane()
    {
        pane.addLayer(&bottom, QStringLiteral("bottom"));
        pane.addLayer(&top, QStringLiteral("top"));
    }

    Layer bottom;
    Layer top;
    Layer layer;
    LayeredPane pane;
};

} // namespace

Q_DECLARE_METATYPE(Side)

class tst_LayeredPane : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void paneComesWithOneStackLayoutOfItsOwn();
    void layersAreStackedInOrderOfAddition();
    void addLayerIsAddLayerAboveWithoutNeighbour();
    void addedLayerIsChildAndFoundByItsKey();
    void addedLayerTakesItsKeyAsObjectName();
    void keysAreCaseSensitive();

    void nullLayerIsRefused_data() { sides(); }
    void nullLayerIsRefused();
    void emptyKeyIsRefused_data() { sides(); }
    void emptyKeyIsRefused();
    void emptyKeyLeavesTheObjectNameAlone();
    void usedKeyIsRefused_data() { sidesAndNeighbours(); }
    void usedKeyIsRefused();
    void layerRefusedForItsKeyCarriesItAsObjectName_data() { sidesAndNeighbours(); }
    void layerRefusedForItsKeyCarriesItAsObjectName();
    void usedKeyIsNamedInUtf8();
    void addLayerReportsAsAddLayerAbove();
    void warningCarriesNoFileAndLine();

    void withoutNeighbourTheLayerGoesOnTop_data() { sides(); }
    void withoutNeighbourTheLayerGoesOnTop();
    void layerGoesNextToItsNeighbour_data();
    void layerGoesNextToItsNeighbour();
    void unknownNeighbourPutsTheLayerOnTop_data() { sides(); }
    void unknownNeighbourPutsTheLayerOnTop();
    void layerThatIsChildAlreadyIsNotRecordedWithoutNeighbour_data() { sides(); }
    void layerThatIsChildAlreadyIsNotRecordedWithoutNeighbour();
    void layerThatIsChildAlreadyIsRecordedAllTheSameNextToNeighbour_data() { sides(); }
    void layerThatIsChildAlreadyIsRecordedAllTheSameNextToNeighbour();
    void paneWithoutLayoutFailsAsAFigureDoes_data() { sides(); }
    void paneWithoutLayoutFailsAsAFigureDoes();
    void paneWithoutLayoutRefusesNeighbours_data() { sides(); }
    void paneWithoutLayoutRefusesNeighbours();

    void unknownKeyGivesNull();
    void layerIsFoundInNestedPane();
    void layerIsFoundInPaneNestedTwice();
    void ownLayerIsPreferredToNestedOne();
    void nestedPanesAreSearchedInOrderOfAdditionNotOfKeys();
    void freeformPaneCountsAsNestedPane();
    void nestedPaneItselfIsFoundByItsKey();

    void removedLayerComesBackAndIsNoChildAnyMore();
    void removedKeyMayBeUsedAgain();
    void removeLayerKnowsNoOtherKeys();
    void removeLayerLeavesNestedPanesAlone();
    void removedNestedPaneIsNotSearchedAnyMore();
    void nestedPaneThatIsAddedAgainIsSearchedLast();
    void removeLayerIsCaseSensitive();
    void figureRemoveLeavesTheKey();

    void destroyedLayerFreesItsKey();
    void destroyedNestedPaneIsNotSearchedAnyMore();
    void paneUnderTheKeyOfADestroyedOneIsSearchedLast();

private:
    static void sides();
    static void sidesAndNeighbours();
    static QByteArray message(Side side, const char *reason);
};

void tst_LayeredPane::sides()
{
    QTest::addColumn<Side>("side");
    QTest::newRow("above") << Side::Above;
    QTest::newRow("beneath") << Side::Beneath;
}

void tst_LayeredPane::sidesAndNeighbours()
{
    QTest::addColumn<Side>("side");
    QTest::addColumn<bool>("withNeighbour");
    QTest::newRow("above all") << Side::Above << false;
    QTest::newRow("above a neighbour") << Side::Above << true;
    QTest::newRow("beneath null") << Side::Beneath << false;
    QTest::newRow("beneath a neighbour") << Side::Beneath << true;
}

QByteArray tst_LayeredPane::message(Side side, const char *reason)
{
    return QByteArray("LayeredPane::") +
           (side == Side::Above ? "addLayerAbove" : "addLayerBeneath") + "(): " + reason;
}

void tst_LayeredPane::paneComesWithOneStackLayoutOfItsOwn()
{
    LayeredPane pane;

    QVERIFY(qobject_cast<StackLayout *>(pane.getLayoutManager()));
    QCOMPARE(pane.findChildren<Velmora::Figura::Layout *>(),
             QList<Velmora::Figura::Layout *>{pane.getLayoutManager()});
}

void tst_LayeredPane::layersAreStackedInOrderOfAddition()
{
    Pane p;

    p.pane.addLayer(&p.layer, a);

    QCOMPARE(p.pane.childFigures(), (QList<Figure *>{&p.bottom, &p.top, &p.layer}));
}

void tst_LayeredPane::addLayerIsAddLayerAboveWithoutNeighbour()
{
    Layer layer;
    ForwardingPane pane;
    pane.lastNeighbour = &layer;

    pane.addLayer(&layer, a);

    QCOMPARE(pane.above, 1);
    QCOMPARE(pane.lastNeighbour, nullptr);
    QCOMPARE(pane.getLayer(a), &layer);
}

void tst_LayeredPane::addedLayerIsChildAndFoundByItsKey()
{
    Pane p;

    p.pane.addLayer(&p.layer, a);

    QCOMPARE(p.layer.getParentFigure(), &p.pane);
    QCOMPARE(p.pane.getLayer(a), &p.layer);
    QCOMPARE(p.pane.getLayer(QStringLiteral("top")), &p.top);
}

void tst_LayeredPane::addedLayerTakesItsKeyAsObjectName()
{
    Pane p;
    p.layer.setObjectName(QStringLiteral("other"));

    p.pane.addLayer(&p.layer, a);

    QCOMPARE(p.layer.objectName(), a);
}

void tst_LayeredPane::keysAreCaseSensitive()
{
    Pane p;

    p.pane.addLayer(&p.layer, QStringLiteral("Top"));

    QCOMPARE(p.pane.getLayer(QStringLiteral("Top")), &p.layer);
    QCOMPARE(p.pane.getLayer(QStringLiteral("top")), &p.top);
    QCOMPARE(p.pane.getLayer(QStringLiteral("TOP")), nullptr);
}

void tst_LayeredPane::nullLayerIsRefused()
{
    QFETCH(Side, side);
    Pane p;

    QTest::ignoreMessage(QtWarningMsg,
                         message(side, "cannot add null layer or add with empty key").constData());
    addAt(p.pane, side, nullptr, a, nullptr);

    QCOMPARE(p.pane.childFigureCount(), 2);
    QCOMPARE(p.pane.getLayer(a), nullptr);
}

void tst_LayeredPane::emptyKeyIsRefused()
{
    QFETCH(Side, side);
    Pane p;

    QTest::ignoreMessage(QtWarningMsg,
                         message(side, "cannot add null layer or add with empty key").constData());
    addAt(p.pane, side, &p.layer, QString(), &p.top);

    QCOMPARE(p.pane.childFigureCount(), 2);
    QCOMPARE(p.layer.getParentFigure(), nullptr);
}

void tst_LayeredPane::emptyKeyLeavesTheObjectNameAlone()
{
    Pane p;
    p.layer.setObjectName(QStringLiteral("other"));

    QTest::ignoreMessage(
        QtWarningMsg, "LayeredPane::addLayerAbove(): cannot add null layer or add with empty key");
    p.pane.addLayer(&p.layer, QStringLiteral(""));

    QCOMPARE(p.layer.objectName(), QStringLiteral("other"));
}

void tst_LayeredPane::usedKeyIsRefused()
{
    QFETCH(Side, side);
    QFETCH(bool, withNeighbour);
    Pane p;

    QTest::ignoreMessage(QtWarningMsg, message(side, "layer 'top' already exists").constData());
    addAt(p.pane, side, &p.layer, QStringLiteral("top"), withNeighbour ? &p.bottom : nullptr);

    QCOMPARE(p.pane.childFigures(), (QList<Figure *>{&p.bottom, &p.top}));
    QCOMPARE(p.pane.getLayer(QStringLiteral("top")), &p.top);
    QCOMPARE(p.layer.getParentFigure(), nullptr);
}

// The name is set before the key is looked up, on purpose.
void tst_LayeredPane::layerRefusedForItsKeyCarriesItAsObjectName()
{
    QFETCH(Side, side);
    QFETCH(bool, withNeighbour);
    Pane p;

    QTest::ignoreMessage(QtWarningMsg, message(side, "layer 'top' already exists").constData());
    addAt(p.pane, side, &p.layer, QStringLiteral("top"), withNeighbour ? &p.bottom : nullptr);

    QCOMPARE(p.layer.objectName(), QStringLiteral("top"));
}

void tst_LayeredPane::usedKeyIsNamedInUtf8()
{
    const QString key = QStringLiteral("Gr\u00FC\u00DFe \u2192 100% %s");
    Layer first;
    Layer second;
    LayeredPane pane;
    pane.addLayer(&first, key);
    LogCapture log;

    pane.addLayer(&second, key);

    QCOMPARE(log.texts(QtWarningMsg),
             QStringList{QStringLiteral("LayeredPane::addLayerAbove(): layer '") + key +
                         QStringLiteral("' already exists")});
}

void tst_LayeredPane::addLayerReportsAsAddLayerAbove()
{
    Pane p;

    QTest::ignoreMessage(QtWarningMsg, "LayeredPane::addLayerAbove(): layer 'top' already exists");
    p.pane.addLayer(&p.layer, QStringLiteral("top"));
}

void tst_LayeredPane::warningCarriesNoFileAndLine()
{
    Pane p;
    LogCapture log;

    p.pane.addLayerBeneath(nullptr, a, nullptr);

    QCOMPARE(log.messages().size(), 1);
    QVERIFY(!log.messages().first().hasPlace);
}

// Also beneath nothing: the later child is on top whatever the operation is called.
void tst_LayeredPane::withoutNeighbourTheLayerGoesOnTop()
{
    QFETCH(Side, side);
    Pane p;

    addAt(p.pane, side, &p.layer, a, nullptr);

    QCOMPARE(p.pane.childFigures(), (QList<Figure *>{&p.bottom, &p.top, &p.layer}));
    QCOMPARE(p.pane.getLayer(a), &p.layer);
}

void tst_LayeredPane::layerGoesNextToItsNeighbour_data()
{
    QTest::addColumn<Side>("side");
    QTest::addColumn<int>("neighbour");
    QTest::addColumn<int>("expected");
    QTest::newRow("above the bottom") << Side::Above << 0 << 1;
    QTest::newRow("above the middle") << Side::Above << 1 << 2;
    QTest::newRow("above the top") << Side::Above << 2 << 3;
    QTest::newRow("beneath the bottom") << Side::Beneath << 0 << 0;
    QTest::newRow("beneath the middle") << Side::Beneath << 1 << 1;
    QTest::newRow("beneath the top") << Side::Beneath << 2 << 2;
}

void tst_LayeredPane::layerGoesNextToItsNeighbour()
{
    QFETCH(Side, side);
    QFETCH(int, neighbour);
    QFETCH(int, expected);
    Layer layers[3];
    Layer layer;
    LayeredPane pane;
    for (int i = 0; i < 3; ++i)
        pane.addLayer(&layers[i], QString::number(i));

    addAt(pane, side, &layer, a, &layers[neighbour]);

    QCOMPARE(pane.childFigures().indexOf(&layer), expected);
    QCOMPARE(pane.childFigureCount(), 4);
    QCOMPARE(pane.getLayer(a), &layer);
    QCOMPARE(layer.objectName(), a);
    QCOMPARE(layer.getParentFigure(), &pane);
}

void tst_LayeredPane::unknownNeighbourPutsTheLayerOnTop()
{
    QFETCH(Side, side);
    Pane p;
    Layer stranger;

    addAt(p.pane, side, &p.layer, QStringLiteral("k"), &stranger);

    QCOMPARE(p.pane.childFigures(), (QList<Figure *>{&p.bottom, &p.top, &p.layer}));
    QCOMPARE(p.pane.getLayer(QStringLiteral("k")), &p.layer);
}

void tst_LayeredPane::layerThatIsChildAlreadyIsNotRecordedWithoutNeighbour()
{
    QFETCH(Side, side);
    Pane p;

    addAt(p.pane, side, &p.top, a, nullptr);

    QCOMPARE(p.pane.childFigureCount(), 2);
    QCOMPARE(p.pane.getLayer(a), nullptr);
    QCOMPARE(p.top.objectName(), a);
}

// What the layout answers is not asked for next to a neighbour, on purpose.
void tst_LayeredPane::layerThatIsChildAlreadyIsRecordedAllTheSameNextToNeighbour()
{
    QFETCH(Side, side);
    Pane p;

    addAt(p.pane, side, &p.top, a, &p.bottom);

    QCOMPARE(p.pane.childFigures(), (QList<Figure *>{&p.bottom, &p.top}));
    QCOMPARE(p.pane.getLayer(a), &p.top);
}

void tst_LayeredPane::paneWithoutLayoutFailsAsAFigureDoes()
{
    QFETCH(Side, side);
    Layer layer;
    LayeredPane pane;
    delete pane.getLayoutManager();

    QTest::ignoreMessage(QtDebugMsg, "Figure::add(): failed, no layout manager");
    addAt(pane, side, &layer, a, nullptr);

    QCOMPARE(pane.getLayer(a), nullptr);
    QCOMPARE(layer.objectName(), a);
}

void tst_LayeredPane::paneWithoutLayoutRefusesNeighbours()
{
    QFETCH(Side, side);
    Layer layer;
    Layer neighbour;
    LayeredPane pane;
    delete pane.getLayoutManager();

    QTest::ignoreMessage(QtWarningMsg, message(side, "no layout manager").constData());
    addAt(pane, side, &layer, a, &neighbour);

    QCOMPARE(pane.getLayer(a), nullptr);
    QCOMPARE(layer.objectName(), a);
}

void tst_LayeredPane::unknownKeyGivesNull()
{
    Pane p;

    QCOMPARE(p.pane.getLayer(QStringLiteral("nowhere")), nullptr);
    QCOMPARE(p.pane.getLayer(QString()), nullptr);
}

void tst_LayeredPane::layerIsFoundInNestedPane()
{
    Layer inner;
    LayeredPane nested;
    LayeredPane pane;
    nested.addLayer(&inner, a);

    pane.addLayer(&nested, b);

    QCOMPARE(pane.getLayer(a), &inner);
}

void tst_LayeredPane::layerIsFoundInPaneNestedTwice()
{
    Layer inner;
    LayeredPane innermost;
    LayeredPane nested;
    LayeredPane pane;
    pane.addLayer(&nested, a);
    nested.addLayer(&innermost, b);
    innermost.addLayer(&inner, c);

    QCOMPARE(pane.getLayer(c), &inner);
}

void tst_LayeredPane::ownLayerIsPreferredToNestedOne()
{
    Layer inner;
    Layer own;
    LayeredPane nested;
    LayeredPane pane;
    nested.addLayer(&inner, a);
    pane.addLayer(&nested, b);

    pane.addLayer(&own, a);

    QCOMPARE(pane.getLayer(a), &own);
}

void tst_LayeredPane::nestedPanesAreSearchedInOrderOfAdditionNotOfKeys()
{
    Layer firstInner;
    Layer secondInner;
    LayeredPane first;
    LayeredPane second;
    LayeredPane pane;
    first.addLayer(&firstInner, a);
    second.addLayer(&secondInner, a);

    pane.addLayer(&first, QStringLiteral("z"));
    pane.addLayerBeneath(&second, QStringLiteral("y"), &first);

    QCOMPARE(pane.getLayer(a), &firstInner);
}

void tst_LayeredPane::freeformPaneCountsAsNestedPane()
{
    FreeformLayer inner;
    FreeformLayeredPane nested;
    LayeredPane pane;
    nested.addLayer(&inner, a);

    pane.addLayer(&nested, b);

    QCOMPARE(pane.getLayer(a), &inner);
}

void tst_LayeredPane::nestedPaneItselfIsFoundByItsKey()
{
    LayeredPane nested;
    LayeredPane pane;

    pane.addLayer(&nested, b);

    QCOMPARE(pane.getLayer(b), &nested);
}

void tst_LayeredPane::removedLayerComesBackAndIsNoChildAnyMore()
{
    Pane p;

    QCOMPARE(p.pane.removeLayer(QStringLiteral("bottom")), &p.bottom);

    QCOMPARE(p.pane.childFigures(), QList<Figure *>{&p.top});
    QCOMPARE(p.bottom.getParentFigure(), nullptr);
    QCOMPARE(p.pane.getLayer(QStringLiteral("bottom")), nullptr);
}

void tst_LayeredPane::removedKeyMayBeUsedAgain()
{
    Pane p;
    p.pane.removeLayer(QStringLiteral("bottom"));

    p.pane.addLayer(&p.layer, QStringLiteral("bottom"));

    QCOMPARE(p.pane.getLayer(QStringLiteral("bottom")), &p.layer);
}

void tst_LayeredPane::removeLayerKnowsNoOtherKeys()
{
    Pane p;

    QCOMPARE(p.pane.removeLayer(QStringLiteral("nowhere")), nullptr);

    QCOMPARE(p.pane.childFigureCount(), 2);
}

void tst_LayeredPane::removeLayerLeavesNestedPanesAlone()
{
    Layer inner;
    LayeredPane nested;
    LayeredPane pane;
    nested.addLayer(&inner, a);
    pane.addLayer(&nested, b);

    QCOMPARE(pane.removeLayer(a), nullptr);

    QCOMPARE(nested.getLayer(a), &inner);
    QCOMPARE(inner.getParentFigure(), &nested);
}

void tst_LayeredPane::removedNestedPaneIsNotSearchedAnyMore()
{
    Layer inner;
    LayeredPane nested;
    LayeredPane pane;
    nested.addLayer(&inner, a);
    pane.addLayer(&nested, b);

    QCOMPARE(pane.removeLayer(b), &nested);

    QCOMPARE(pane.getLayer(a), nullptr);
}

void tst_LayeredPane::nestedPaneThatIsAddedAgainIsSearchedLast()
{
    Layer firstInner;
    Layer secondInner;
    LayeredPane first;
    LayeredPane second;
    LayeredPane pane;
    first.addLayer(&firstInner, a);
    second.addLayer(&secondInner, a);
    pane.addLayer(&first, b);
    pane.addLayer(&second, c);

    pane.removeLayer(b);
    pane.addLayer(&first, b);

    QCOMPARE(pane.getLayer(a), &secondInner);
}

void tst_LayeredPane::removeLayerIsCaseSensitive()
{
    Layer inner;
    LayeredPane nested;
    LayeredPane pane;
    nested.addLayer(&inner, a);
    pane.addLayer(&nested, b);

    QCOMPARE(pane.removeLayer(QStringLiteral("B")), nullptr);

    QCOMPARE(pane.getLayer(a), &inner);
}

void tst_LayeredPane::figureRemoveLeavesTheKey()
{
    Pane p;

    p.pane.remove(&p.top);
    QCOMPARE(p.pane.getLayer(QStringLiteral("top")), &p.top);

    QTest::ignoreMessage(QtWarningMsg, "LayeredPane::addLayerAbove(): layer 'top' already exists");
    p.pane.addLayer(&p.layer, QStringLiteral("top"));
    QCOMPARE(p.pane.removeLayer(QStringLiteral("top")), &p.top);
}

void tst_LayeredPane::destroyedLayerFreesItsKey()
{
    Layer next;
    LayeredPane pane;
    auto doomed = std::make_unique<Layer>();
    pane.addLayer(doomed.get(), a);

    doomed.reset();
    QCOMPARE(pane.getLayer(a), nullptr);
    QCOMPARE(pane.removeLayer(a), nullptr);

    pane.addLayer(&next, a);
    QCOMPARE(pane.getLayer(a), &next);
}

void tst_LayeredPane::destroyedNestedPaneIsNotSearchedAnyMore()
{
    Layer inner;
    Layer last;
    LayeredPane other;
    LayeredPane pane;
    auto doomed = std::make_unique<LayeredPane>();
    doomed->addLayer(&inner, a);
    pane.addLayer(doomed.get(), b);
    other.addLayer(&last, a);
    pane.addLayer(&other, c);

    doomed.reset();

    QCOMPARE(pane.getLayer(a), &last);
}

void tst_LayeredPane::paneUnderTheKeyOfADestroyedOneIsSearchedLast()
{
    Layer first;
    Layer last;
    LayeredPane next;
    LayeredPane other;
    LayeredPane pane;
    auto doomed = std::make_unique<LayeredPane>();
    pane.addLayer(doomed.get(), b);
    other.addLayer(&first, a);
    pane.addLayer(&other, c);
    next.addLayer(&last, a);
    doomed.reset();

    pane.addLayer(&next, b);

    QCOMPARE(pane.getLayer(a), &first);
}

QTEST_MAIN(tst_LayeredPane)
#include "tst_layeredpane.moc"
