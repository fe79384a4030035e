#include <mortalconnection.h>
#include <mortalfigure.h>

#include <figura/connection/PolylineConnection.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/ConnectionLocator.h>
#include <figura/decoration/Decoration.h>
#include <figura/decoration/RelativeLocator.h>

#include <QPointer>
#include <QTest>

#include <functional>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

class Badge : public Decoration
{
public:
    using Decoration::Decoration;

protected:
    void regeneratePath(const QRectF &) override {}
};

/// A locator, the label that it places, and all that both look at.
class Placement
{
public:
    Placement()
    {
        m_connection.setEndPoints(QPoint(0, 0), QPoint(100, 60));
        m_reference.setBounds(QRect(10, 10, 50, 40));
    }
    ~Placement()
    {
        delete locator;
        delete label;
    }
    Q_DISABLE_COPY_MOVE(Placement)

    void take(const QString &kind)
    {
        if (kind == QStringLiteral("relative"))
            hold(new RelativeLocator(&m_reference, 0.5, 0.5));
        else if (kind == QStringLiteral("end"))
            hold(new ConnectionEndpointLocator(&m_connection, true));
        else
            hold(new MortalLocator<ConnectionLocator>(&fate, "locator", &m_connection));
    }

    void destroy(const QString &victim)
    {
        if (victim == QStringLiteral("locator"))
            delete locator;
        else
            delete label;
    }

    Fate fate;
    QPointer<QObject> locator;
    ILocator *placing = nullptr;
    QPointer<Figure> label = new MortalFigure<Figure>(&fate, "label");

private:
    template<class Kind>
    void hold(Kind *made)
    {
        locator = made;
        placing = made;
    }

    PolylineConnection m_connection;
    Figure m_reference;
};

} // namespace

class tst_DecorationInterrupted : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void partsMayGoWhileALabelIsPlaced_data();
    void partsMayGoWhileALabelIsPlaced();
    void decorationMayGoWhenItsOwnerHasMoved();
};

void tst_DecorationInterrupted::partsMayGoWhileALabelIsPlaced_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("victim");
    const auto row = [](const char *kind, const char *moment, const char *victim) {
        QTest::addRow("%s: %s in %s", kind, victim, moment)
            << QString::fromLatin1(kind) << QString::fromLatin1(moment)
            << QString::fromLatin1(victim);
    };
    for (const char *victim : {"locator", "label"}) {
        for (const char *kind : {"relative", "end", "middle"})
            row(kind, "label::getPreferredSize", victim);
        row("middle", "locator::getReferencePoint", victim);
    }
}

void tst_DecorationInterrupted::partsMayGoWhileALabelIsPlaced()
{
    QFETCH(QString, kind);
    QFETCH(QString, moment);
    QFETCH(QString, victim);
    Placement placement;
    placement.take(kind);
    const QRect before = placement.label->getBounds();
    placement.fate.at(moment, 1, [&] { placement.destroy(victim); });

    placement.placing->relocate(placement.label);

    QVERIFY(placement.fate.hasStruck());
    QCOMPARE(placement.locator.isNull(), victim == QStringLiteral("locator"));
    QCOMPARE(placement.label.isNull(), victim == QStringLiteral("label"));
    if (placement.label)
        QCOMPARE(placement.label->getBounds(), before);
}

void tst_DecorationInterrupted::decorationMayGoWhenItsOwnerHasMoved()
{
    Fate fate;
    QPointer<Decoration> decoration =
        new MortalFigure<Badge>(&fate, "decoration", nullptr, nullptr);
    fate.at(QStringLiteral("decoration::revalidate"), 1, [&] { delete decoration; });

    decoration->ancestorMoved(nullptr);

    QVERIFY(fate.hasStruck());
    QVERIFY(!decoration);
}

QTEST_MAIN(tst_DecorationInterrupted)
#include "tst_decoration_interrupted.moc"
