#include "figure/figureguard_p.h"

#include <figura/shape/Rectangle.h>

#include <QTest>

#include <functional>
#include <memory>

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
    void guardsOfTheCallsUnderWayBecomeNull();
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

// Each call guards one of two figures; the inmost destroys the first, and all of its guards know.
void tst_FigureGuard::guardsOfTheCallsUnderWayBecomeNull()
{
    auto doomed = std::make_unique<Rectangle>(nullptr);
    const Rectangle other(nullptr);
    int nulls = 0;
    const std::function<void(int)> call = [&](int depth) {
        const bool isOfDoomed = depth % 3 == 0;
        const FigureGuard guard(isOfDoomed ? doomed.get() : &other);
        if (depth == 0)
            doomed.reset();
        else
            call(depth - 1);
        QCOMPARE(guard.get() == nullptr, isOfDoomed);
        nulls += guard.get() == nullptr;
    };

    call(30);

    QCOMPARE(nulls, 11);
    const FigureGuard after(&other);
    QCOMPARE(after.get(), &other);
}

QTEST_MAIN(tst_FigureGuard)
#include "tst_figureguard.moc"
