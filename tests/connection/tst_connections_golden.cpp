#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/Rectangle.h>

#include <golden.h>
#include <pixels.h>
#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QStyleOptionViewItem>
#include <QTest>

#include <memory>

using namespace Velmora::Figura;
using namespace Velmora::Figura::Test;

namespace {

void dye(Shape &shape, const QColor &fill)
{
    shape.setEnabledFGColor(Qt::black);
    shape.setEnabledBGColor(fill);
}

// A box, an ellipse and a connection from the one to the other, with a head at either end.
class Scene
{
public:
    RecordingUpdateManager manager;
    RootFigure root{&manager};
    Velmora::Figura::Rectangle box{nullptr};
    Velmora::Figura::Ellipse ellipse{nullptr};
    ChopboxAnchor source{&box};
    EllipseAnchor target{&ellipse};
    NullRouter straight{nullptr};
    BendpointConnectionRouter bending{nullptr};
    ManhattanConnectionRouter manhattan{nullptr};
    PolylineDecoration tail{nullptr};
    PolygonDecoration head{nullptr};
    PolylineConnection connection{nullptr};

    explicit Scene(const QString &routerName)
    {
        root.setLayoutManager(new XYLayout(&root));
        root.setBounds(QRect(0, 0, 200, 140));
        for (Figure *figure : {static_cast<Figure *>(&box), static_cast<Figure *>(&ellipse),
                               static_cast<Figure *>(&connection)})
            root.add(figure);
        box.setBounds(QRect(10, 10, 60, 40));
        ellipse.setBounds(QRect(120, 80, 70, 50));
        dye(box, QColor(255, 240, 180));
        dye(ellipse, QColor(190, 220, 255));
        dye(connection, Qt::white);
        dye(tail, Qt::white);
        dye(head, Qt::black);
        tail.setScale(7, 3);
        head.setScale(9, 4);
        connection.setSourceDecoration(&tail);
        connection.setTargetDecoration(&head);
        connection.setSourceAnchor(&source);
        connection.setTargetAnchor(&target);
        route(routerName);
        root.validate();
    }

private:
    void route(const QString &routerName)
    {
        if (routerName == QStringLiteral("manhattan"))
            return connection.setConnectionRouter(&manhattan);
        if (routerName == QStringLiteral("straight"))
            return connection.setConnectionRouter(&straight);
        connection.setConnectionRouter(&bending);
        const auto bend = [](int x, int y) {
            return QVariant::fromValue(AbsoluteBendpoint(x, y, nullptr));
        };
        connection.setRoutingConstraint(QVariantList{bend(40, 110), bend(90, 60), bend(155, 30)});
    }
};

} // namespace

class tst_ConnectionsGolden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void routeLooksAsStored_data();
    void routeLooksAsStored();
};

void tst_ConnectionsGolden::routeLooksAsStored_data()
{
    QTest::addColumn<QString>("routerName");
    QTest::addColumn<int>("scale");
    for (const char *router : {"straight", "bendpoints", "manhattan"}) {
        for (const int scale : {1, 2})
            QTest::addRow("%s at scale %d", router, scale) << QString::fromLatin1(router) << scale;
    }
}

void tst_ConnectionsGolden::routeLooksAsStored()
{
    QFETCH(QString, routerName);
    QFETCH(int, scale);
    Scene scene(routerName);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 200, 140);

    const QImage picture = paintedImage(QSize(200, 140) * scale, [&](QPainter *painter) {
        painter->scale(scale, scale);
        scene.root.render(painter, option);
    });

    FIGURA_COMPARE_GOLDEN(picture, QStringLiteral("connections/%1_x%2").arg(routerName).arg(scale));
}

QTEST_MAIN(tst_ConnectionsGolden)
#include "tst_connections_golden.moc"
