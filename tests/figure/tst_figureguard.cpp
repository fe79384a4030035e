#include "figure/figureguard_p.h"

#include <figura/shape/Rectangle.h>

#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <vector>

using namespace Velmora::Figura;

namespace {

// Says whether its guard still held it when its destructor ran.
class Watched : public Rectangle
{
public:
    explicit Watched(bool *wasSet)
        : Rectangle(nullptr)
        , m_wasSet(wasSet)
    {
    }
    ~Watched() override { *m_wasSet = guard->get() == this; }

    const FigureGuard *guard = nullptr;

private:
    bool *m_wasSet;
};

} // namespace

class tst_FigureGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void guardHoldsTheFigureWhileItLives();
    void guardOfNoFigureIsNull();
    void guardIsSetUntilTheDestructorOfASubclassIsThrough();
    void guardsMayEndInAnyOrder_data();
    void guardsMayEndInAnyOrder();
};

void tst_FigureGuard::guardHoldsTheFigureWhileItLives()
{
    auto figure = std::make_unique<Rectangle>(nullptr);
    const FigureGuard outer(figure.get());
    const FigureGuard inner(figure.get());

    QCOMPARE(outer.get(), figure.get());
    QCOMPARE(inner->getBounds(), QRect());
    figure.reset();
    QCOMPARE(outer.get(), nullptr);
    QCOMPARE(inner.get(), nullptr);
}

void tst_FigureGuard::guardOfNoFigureIsNull()
{
    const FigureGuard guard(nullptr);

    QCOMPARE(guard.get(), nullptr);
}

void tst_FigureGuard::guardIsSetUntilTheDestructorOfASubclassIsThrough()
{
    bool wasSet = false;
    auto figure = std::make_unique<Watched>(&wasSet);
    const FigureGuard guard(figure.get());
    figure->guard = &guard;

    figure.reset();

    QVERIFY(wasSet);
    QCOMPARE(guard.get(), nullptr);
}

void tst_FigureGuard::guardsMayEndInAnyOrder_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_FigureGuard::guardsMayEndInAnyOrder()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    auto figure = std::make_unique<Rectangle>(nullptr);
    std::vector<std::unique_ptr<FigureGuard>> guards;

    for (int step = 0; step < 200; ++step) {
        if (guards.empty() || random.bounded(2) == 0)
            guards.push_back(std::make_unique<FigureGuard>(figure.get()));
        else
            guards.erase(guards.begin() + random.bounded(int(guards.size())));
    }
    guards.push_back(std::make_unique<FigureGuard>(figure.get()));
    figure.reset();

    for (const auto &guard : guards)
        QCOMPARE(guard->get(), nullptr);
}

QTEST_MAIN(tst_FigureGuard)
#include "tst_figureguard.moc"
