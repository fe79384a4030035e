#include "connection_fixtures.h"

#include <figura/connection/ChopboxAnchor.h>

#include <vector>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

// Work that a crowd of figures causes, counted where figures call out.
struct Work
{
    qint64 listenersAdded = 0;
    qint64 listenersRemoved = 0;
    qint64 disconnections = 0; // as their senders are told
    qint64 validations = 0;
};

class CountedBox : public Figure
{
public:
    Work *work = nullptr;

    void addAncestorListener(IAncestorListener *listener) override
    {
        ++work->listenersAdded;
        Figure::addAncestorListener(listener);
    }

    void removeAncestorListener(IAncestorListener *listener) override
    {
        ++work->listenersRemoved;
        Figure::removeAncestorListener(listener);
    }

    void validate() override
    {
        ++work->validations;
        Figure::validate();
    }

protected:
    void disconnectNotify(const QMetaMethod &) override
    {
        if (work)
            ++work->disconnections;
    }
};

class CountedRoot : public RootFigure
{
public:
    Work *work = nullptr;

    using RootFigure::RootFigure;

protected:
    void disconnectNotify(const QMetaMethod &) override
    {
        if (work)
            ++work->disconnections;
    }
};

// A ring of boxes, each connected with the next one.
Work workOfACrowd(int count)
{
    Work work;
    RecordingUpdateManager manager;
    CountedRoot root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    root.work = &work;
    std::vector<std::unique_ptr<CountedBox>> boxes;
    std::vector<std::unique_ptr<ChopboxAnchor>> anchors;
    std::vector<std::unique_ptr<PolylineConnection>> wires;
    for (int i = 0; i < count; ++i) {
        boxes.push_back(std::make_unique<CountedBox>());
        boxes.back()->work = &work;
        boxes.back()->setBounds(QRect(i % 100 * 60, i / 100 * 60, 40, 30));
        root.add(boxes.back().get());
    }
    for (int i = 0; i < count; ++i) {
        wires.push_back(std::make_unique<PolylineConnection>(nullptr));
        anchors.push_back(std::make_unique<ChopboxAnchor>(boxes[size_t(i)].get()));
        wires.back()->setSourceAnchor(anchors.back().get());
        anchors.push_back(std::make_unique<ChopboxAnchor>(boxes[size_t((i + 1) % count)].get()));
        wires.back()->setTargetAnchor(anchors.back().get());
        root.add(wires.back().get());
    }
    root.validate();

    for (const auto &wire : wires)
        root.remove(wire.get());
    wires.clear();
    anchors.clear();
    for (const auto &box : boxes)
        root.remove(box.get());
    boxes.clear();
    return work;
}

} // namespace

class tst_ConnectionScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void workPerFigureIsTheSameInACrowd();
    void everyEndIsHookedAndUnhookedOnce();
    void disconnectionsPerFigureDoNotGrowWithTheCrowd();
    void destroyedFiguresAreTakenOutOfTheChainOnce();
    void moveRevalidatesOnlyTheConnectionsOfTheFigure();
    void removedAnchorsNoLongerWatchTheRoot();
};

void tst_ConnectionScale::workPerFigureIsTheSameInACrowd()
{
    const Work few = workOfACrowd(200);
    const Work many = workOfACrowd(2000);

    QCOMPARE(many.listenersAdded, 10 * few.listenersAdded);
    QCOMPARE(many.listenersRemoved, 10 * few.listenersRemoved);
    QCOMPARE(many.validations, 10 * few.validations);
}

void tst_ConnectionScale::everyEndIsHookedAndUnhookedOnce()
{
    const Work work = workOfACrowd(200);

    QCOMPARE(work.listenersAdded, 400);
    QCOMPARE(work.listenersRemoved, 400);
}

// The root is in the chain of every watched figure, so its listener list grows with the crowd.
void tst_ConnectionScale::disconnectionsPerFigureDoNotGrowWithTheCrowd()
{
    const qint64 few = workOfACrowd(200).disconnections;
    const qint64 many = workOfACrowd(2000).disconnections;

    QVERIFY2(many <= 10 * few, qPrintable(QStringLiteral("%1 and %2").arg(few).arg(many)));
}

void tst_ConnectionScale::destroyedFiguresAreTakenOutOfTheChainOnce()
{
    RecordingUpdateManager manager;
    CountedRoot root(&manager);
    Work work;
    root.setLayoutManager(new XYLayout(&root));
    std::vector<std::unique_ptr<Figure>> boxes;
    std::vector<std::unique_ptr<ChopboxAnchor>> anchors;
    for (int i = 0; i < 500; ++i) {
        boxes.push_back(std::make_unique<Figure>());
        root.add(boxes.back().get());
        anchors.push_back(std::make_unique<ChopboxAnchor>(nullptr));
        anchors.back()->setOwner(boxes.back().get());
    }
    root.work = &work;

    QList<qint64> perFigure;
    for (const auto &box : boxes) {
        const qint64 before = work.disconnections;
        root.remove(box.get());
        perFigure.append(work.disconnections - before);
    }

    perFigure.removeLast(); // which ends what all of them shared
    QCOMPARE(perFigure.count(perFigure.first()), perFigure.size());
}

void tst_ConnectionScale::moveRevalidatesOnlyTheConnectionsOfTheFigure()
{
    DisplayedTree tree;
    Figure moved;
    Figure resting;
    tree.root.add(&moved);
    tree.root.add(&resting);
    std::vector<std::unique_ptr<ChopboxAnchor>> anchors;
    std::vector<AnyConnectionPointer> wires;
    for (int i = 0; i < 100; ++i) {
        wires.push_back(makeConnection(QStringLiteral("PolylineConnection")));
        anchors.push_back(std::make_unique<ChopboxAnchor>(i == 0 ? &moved : &resting));
        wires.back()->connection().setSourceAnchor(anchors.back().get());
        tree.root.add(&wires.back()->figure());
        wires.back()->log.clear();
    }

    moved.setBounds(QRect(5, 5, 30, 30));

    int revalidations = 0;
    for (const AnyConnectionPointer &wire : wires)
        revalidations += int(wire->log.count(QStringLiteral("revalidate")));
    QCOMPARE(revalidations, 1);
    wires.clear();
}

void tst_ConnectionScale::removedAnchorsNoLongerWatchTheRoot()
{
    class OpenRoot : public RootFigure
    {
    public:
        using RootFigure::receivers;
        using RootFigure::RootFigure;
    };
    RecordingUpdateManager manager;
    OpenRoot root(&manager);
    root.setLayoutManager(new XYLayout(&root));
    const int before = root.receivers(SIGNAL(figureMoved(Figure *)));
    Figure owner;
    root.add(&owner);
    ChopboxAnchor anchor(&owner);
    PolylineConnection wire(nullptr);
    wire.setSourceAnchor(&anchor);
    for (int i = 0; i < 50; ++i) {
        root.add(&wire);
        root.remove(&wire);
    }
    root.remove(&owner);

    QCOMPARE(root.receivers(SIGNAL(figureMoved(Figure *))), before);
}

QTEST_MAIN(tst_ConnectionScale)
#include "tst_connection_scale.moc"
