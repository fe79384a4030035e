#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/layout/DelegatingLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Rectangle.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>

#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;

namespace {

using Maker = std::function<Figure *()>;

struct Shown
{
    explicit Shown(Figure *figure)
    {
        pane.addLayer(&layer, QStringLiteral("lines"));
        viewer.setContent(&pane);
        layer.add(figure);
        viewer.show();
        isExposed = QTest::qWaitForWindowExposed(&viewer);
    }

    FreeformLayeredPane pane;
    FreeformLayer layer;
    FreeformViewer viewer;
    bool isExposed = false;
};

qsizetype layoutsOf(const QObject &figure)
{
    return figure.findChildren<DelegatingLayout *>().size();
}

class OtherLine : public PolylineConnection
{
public:
    OtherLine()
        : PolylineConnection(nullptr)
    {
    }
    Layout *getLayoutManager() const override { return const_cast<XYLayout *>(&m_other); }

private:
    XYLayout m_other;
};

} // namespace

Q_DECLARE_METATYPE(Maker)

/// A connection's own layout is made when somebody asks for it; nobody but the memory notices.
class tst_ConnectionOwnLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void shownConnectionWithoutChildrenHasMadeNone_data() { addRows(); }
    void shownConnectionWithoutChildrenHasMadeNone();
    void layoutIsMadeOnceWhenAskedFor_data() { addRows(); }
    void layoutIsMadeOnceWhenAskedFor();
    void connectionAnswersAsWithTheLayout_data() { addRows(); }
    void connectionAnswersAsWithTheLayout();
    void childBringsTheLayout_data() { addRows(); }
    void childBringsTheLayout();
    void replacedLayoutIsReturned_data() { addRows(); }
    void replacedLayoutIsReturned();
    void destroyedLayoutIsNotMadeAgain_data() { addRows(); }
    void destroyedLayoutIsNotMadeAgain();
    void layoutOfASubclassIsAskedAllTheSame();

private:
    static void addRows();
};

void tst_ConnectionOwnLayout::addRows()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("whole numbers") << Maker([] { return new PolylineConnection(nullptr); });
    QTest::newRow("fractions") << Maker([] { return new PolylineFConnection(nullptr); });
}

void tst_ConnectionOwnLayout::shownConnectionWithoutChildrenHasMadeNone()
{
    QFETCH(Maker, make);
    const std::unique_ptr<Figure> line(make());
    Shown shown(line.get());
    QVERIFY(shown.isExposed);

    line->revalidate();
    line->findFigureAt(50, 50);
    line->findFigures(QRect(0, 0, 100, 100), false);
    line->erase();
    QCoreApplication::processEvents();
    shown.viewer.widget()->grab();

    QCOMPARE(layoutsOf(*line), 0);
}

void tst_ConnectionOwnLayout::layoutIsMadeOnceWhenAskedFor()
{
    QFETCH(Maker, make);
    const std::unique_ptr<Figure> line(make());

    Layout *made = line->getLayoutManager();

    QVERIFY(qobject_cast<DelegatingLayout *>(made));
    QCOMPARE(made->parent(), line.get());
    QCOMPARE(made->getFigure(), line.get());
    QCOMPARE(line->getLayoutManager(), made);
    QCOMPARE(layoutsOf(*line), 1);
}

void tst_ConnectionOwnLayout::connectionAnswersAsWithTheLayout()
{
    QFETCH(Maker, make);
    const std::unique_ptr<Figure> asked(make());
    const std::unique_ptr<Figure> unasked(make());
    asked->getLayoutManager();

    QCOMPARE(unasked->useLocalCoordinates(), asked->useLocalCoordinates());
    QCOMPARE(unasked->childFigures(), asked->childFigures());
    QCOMPARE(unasked->childFigureCount(), asked->childFigureCount());
    QCOMPARE(layoutsOf(*unasked), 0);
    QCOMPARE(unasked->getMinimumSize(), asked->getMinimumSize());
    QCOMPARE(unasked->getPreferredSize(), asked->getPreferredSize());
    QCOMPARE(unasked->expandingDirections(), asked->expandingDirections());
    QCOMPARE(unasked->remove(asked.get()), asked->remove(unasked.get()));
}

void tst_ConnectionOwnLayout::childBringsTheLayout()
{
    QFETCH(Maker, make);
    const std::unique_ptr<Figure> line(make());
    Shown shown(line.get());
    Rectangle child(nullptr);

    QVERIFY(line->add(&child));
    child.setBounds(QRect(20, 20, 30, 30));
    QCoreApplication::processEvents();

    QCOMPARE(layoutsOf(*line), 1);
    QCOMPARE(line->childFigures(), QList<Figure *>{&child});
    QCOMPARE(line->findFigureAt(30, 40), &child);
}

void tst_ConnectionOwnLayout::replacedLayoutIsReturned()
{
    QFETCH(Maker, make);
    const std::unique_ptr<Figure> line(make());
    auto *other = new XYLayout(line.get());

    Layout *previous = line->setLayoutManager(other);

    QVERIFY(qobject_cast<DelegatingLayout *>(previous));
    QCOMPARE(previous->getFigure(), nullptr);
    QCOMPARE(line->getLayoutManager(), other);
}

void tst_ConnectionOwnLayout::destroyedLayoutIsNotMadeAgain()
{
    QFETCH(Maker, make);
    const std::unique_ptr<Figure> line(make());

    delete line->getLayoutManager();

    QCOMPARE(line->getLayoutManager(), nullptr);
    QVERIFY(line->useLocalCoordinates());
}

void tst_ConnectionOwnLayout::layoutOfASubclassIsAskedAllTheSame()
{
    OtherLine line;

    QVERIFY(line.useLocalCoordinates()); // as an XYLayout says
}

QTEST_MAIN(tst_ConnectionOwnLayout)
#include "tst_connection_ownlayout.moc"
