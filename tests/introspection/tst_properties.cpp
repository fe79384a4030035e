#include <figura/Figura.h>

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Velmora::Figura;

using MetaObject = const QMetaObject *;
using Getter = std::function<QVariant()>;
Q_DECLARE_METATYPE(MetaObject)
Q_DECLARE_METATYPE(Getter)

namespace {

// "name" is read only, "name=" can be written, "name~" notifies.
QStringList propertiesOf(const QMetaObject &meta)
{
    QStringList names;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        QString name = QString::fromLatin1(property.name());
        if (property.isWritable())
            name.append(u'=');
        if (property.hasNotifySignal())
            name.append(u'~');
        names.append(name);
    }
    return names;
}

/// A decoration with nothing to draw.
class PlainDecoration : public Decoration
{
public:
    using Decoration::Decoration;

protected:
    void regeneratePath(const QRectF &) override {}
};

} // namespace

class tst_Properties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

    void classesDeclareTheseProperties_data();
    void classesDeclareTheseProperties();
    void everyPropertyHasTypeAndGetter_data() { classesDeclareTheseProperties_data(); }
    void everyPropertyHasTypeAndGetter();
    void writtenPropertyIsWhatTheGetterReturns_data();
    void writtenPropertyIsWhatTheGetterReturns();
    void setterKeepsItsOwnRules();
    void writtenLayoutMayBeOfAnyKind();
    void figureTreeIsReadThroughProperties();
    void publishedPropertyNamesAreProperties();
    void notifyingPropertiesNameTheirSignal_data();
    void notifyingPropertiesNameTheirSignal();
    void growingExtentIsAnnounced();
    void canvasKeepsItsDynamicBackground();

private:
    void addFigureRows();
    void addShapeRows();
    void addLayoutAndBorderRows();
    void addConnectionRows();
    void addViewRows();

    std::unique_ptr<FreeformViewer> m_viewer; // a widget cannot be a child of the test
};

void tst_Properties::classesDeclareTheseProperties_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<QString>("properties");

    const auto row = [](const QMetaObject &meta, const char *properties) {
        QTest::newRow(meta.className()) << &meta << QString::fromLatin1(properties);
    };
    row(Ray::staticMetaObject, "x y");
    row(Transposer::staticMetaObject, "enabled=");
    row(Figure::staticMetaObject,
        "bounds= boundingRect clientArea minimumSize= maximumSize= preferredSize= margin= enabled= "
        "visible= backgroundColor= expandingDirections= highlightStyle= clientAreaHighlighted= "
        "border= tooltip= layoutManager= updateManager parent childFigures");
    row(Border::staticMetaObject, "insets= color= penStyle= penCapStyle= penJoinStyle=");
    row(Layout::staticMetaObject, "figure alignment= spacing= expandingDirections=");
    row(FreeformLayout::staticMetaObject, "freeformExtent~ contentMonitored=");
    row(FreeformStackLayout::staticMetaObject, "freeformExtent~");
    row(FreeformLayer::staticMetaObject, "freeformExtent~ contentMonitored= extentPadding=");
    row(FreeformLayeredPane::staticMetaObject, "freeformExtent~");
    row(UpdateManager::staticMetaObject, "viewer=");
    row(FreeformWidget::staticMetaObject,
        "scale= pointAtOrigin content= updateManager= xMargin yMargin extentHandling= resizing "
        "highlighted= highlightStyle=");
    row(FreeformViewer::staticMetaObject,
        "scale=~ viewLocation= viewRect content= updateManager= pageLayout= extentHandling=");
    row(Shape::staticMetaObject,
        "lineWidth= lineStyle= capStyle= joinStyle= enabledFGColor= enabledBGColor= "
        "disabledFGColor= disabledBGColor= fill=");
    row(RoundedRectangle::staticMetaObject, "xRnd= yRnd=");
    row(Polyline::staticMetaObject, "linePoints= start= end=");
    row(PolylineF::staticMetaObject, "linePoints= start= end=");
    const char *ofConnections =
        "points= pointsf= connectionRouter= routingConstraint= sourceAnchor= targetAnchor=";
    row(PolylineConnection::staticMetaObject, ofConnections);
    row(PolylineFConnection::staticMetaObject, ofConnections);
    row(Bendpoint::staticMetaObject, "location=");
    row(RelativeBendpoint::staticMetaObject, "connection= weight= relativeDim1 relativeDim2");
    row(AbstractConnectionAnchor::staticMetaObject, "owner=");
    row(XYAnchor::staticMetaObject, "location=");
    row(ConnectionLayer::staticMetaObject, "connectionRouter=");
    row(Decoration::staticMetaObject, "owner= locator= managedExternally= showable");
}

// In this order for good: programs that were compiled earlier read by number.
void tst_Properties::classesDeclareTheseProperties()
{
    QFETCH(MetaObject, meta);
    QFETCH(QString, properties);

    QCOMPARE(propertiesOf(*meta).join(u' '), properties);
}

void tst_Properties::everyPropertyHasTypeAndGetter()
{
    QFETCH(MetaObject, meta);

    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        QVERIFY2(meta->property(i).metaType().isValid(), meta->property(i).name());
        QVERIFY2(meta->property(i).isReadable(), meta->property(i).name());
    }
}

namespace {

template<typename Object, typename Function>
void addRow(const char *property, Object *object, const QVariant &value, Function getter)
{
    QTest::addRow("%s::%s", object->metaObject()->className(), property)
        << static_cast<QObject *>(object) << QByteArray(property) << value
        << Getter([=] { return QVariant::fromValue(std::invoke(getter, object)); });
}

template<typename T>
QVariant boxed(T *object)
{
    return QVariant::fromValue(object);
}

} // namespace

void tst_Properties::writtenPropertyIsWhatTheGetterReturns_data()
{
    QTest::addColumn<QObject *>("object");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Getter>("getter");

    addFigureRows();
    addShapeRows();
    addLayoutAndBorderRows();
    addConnectionRows();
    addViewRows();
}

void tst_Properties::addFigureRows()
{
    auto *figure = new Figure(this);
    addRow("bounds", figure, QRect(1, 2, 30, 40), &Figure::getBounds);
    addRow("minimumSize", figure, QSize(3, 4), &Figure::getMinimumSize);
    addRow("maximumSize", figure, QSize(300, 400), &Figure::getMaximumSize);
    addRow("margin", figure, 7, &Figure::getMargin);
    addRow("enabled", figure, false, &Figure::isEnabled);
    addRow("visible", figure, false, &Figure::isVisible);
    addRow("backgroundColor", figure, QColor(Qt::red), &Figure::getBackgroundColor);
    addRow("expandingDirections", figure, QVariant::fromValue<Qt::Orientations>(Qt::Vertical),
           &Figure::expandingDirections);
    addRow("highlightStyle", figure, 0, &Figure::getHighlightStyle);
    addRow("clientAreaHighlighted", figure, true, &Figure::isClientAreaHighlighted);
    addRow("border", figure, boxed<Border>(new SimpleBorder(this)), &Figure::getBorder);
    addRow("tooltip", figure, boxed<Figure>(new Figure(this)), &Figure::getTooltip);
    addRow("layoutManager", figure, boxed<Layout>(new XYLayout(this)), &Figure::getLayoutManager);
    Decoration *decoration = new PlainDecoration(this);
    addRow("owner", decoration, boxed<Figure>(figure), &Decoration::getOwner);
    addRow("managedExternally", decoration, true, &Decoration::isManagedExternally);
    addRow("locator", decoration, boxed<ILocator>(new RelativeLocator(figure, 0, this)),
           &Decoration::getLocator);
}

void tst_Properties::addShapeRows()
{
    auto *shape = new RoundedRectangle(this);
    addRow("lineWidth", shape, 3, &Shape::getLineWidth);
    addRow("lineStyle", shape, QVariant::fromValue(Qt::DashLine), &Shape::getLineStyle);
    addRow("capStyle", shape, QVariant::fromValue(Qt::RoundCap), &Shape::getCapStyle);
    addRow("joinStyle", shape, QVariant::fromValue(Qt::RoundJoin), &Shape::getJoinStyle);
    addRow("enabledFGColor", shape, QColor(Qt::red), &Shape::getEnabledFGColor);
    addRow("enabledBGColor", shape, QColor(Qt::green), &Shape::getEnabledBGColor);
    addRow("disabledFGColor", shape, QColor(Qt::blue), &Shape::getDisabledFGColor);
    addRow("fill", shape, false, &Shape::getFill);
    addRow("xRnd", shape, 11, &RoundedRectangle::getXRnd);
    addRow("yRnd", shape, 12, &RoundedRectangle::getYRnd);
    auto *line = new Polyline(this);
    addRow("linePoints", line, QVariant::fromValue(QList<QPoint>{{1, 2}, {3, 4}}),
           &Polyline::getLinePoints);
    addRow("start", line, QPoint(5, 6), &Polyline::getStart);
    addRow("end", line, QPoint(7, 8), &Polyline::getEnd);
    auto *smooth = new PolylineF(this);
    addRow("linePoints", smooth, QVariant::fromValue(QList<QPointF>{{1, 2.5}, {3, 4}}),
           &PolylineF::getLinePoints);
    addRow("start", smooth, QPointF(5, 6.5), &PolylineF::getStart);
    addRow("end", smooth, QPointF(7, 8.5), &PolylineF::getEnd);
}

void tst_Properties::addLayoutAndBorderRows()
{
    auto *layout = new FreeformLayout(this);
    addRow("alignment", layout, QVariant::fromValue<Qt::Alignment>(Qt::AlignRight),
           &Layout::getAligment);
    addRow("spacing", layout, 9, &Layout::getSpacing);
    addRow("expandingDirections", layout, QVariant::fromValue<Qt::Orientations>(Qt::Vertical),
           &Layout::expandingDirections);
    addRow("contentMonitored", layout, false, &FreeformLayout::isContentMonitored);
    auto *border = new SimpleBorder(this);
    addRow("insets", border, QVariant::fromValue(Insets(1, 2, 3, 4)), &Border::getInsets);
    addRow("color", border, QColor(Qt::red), &Border::getColor);
    addRow("penStyle", border, QVariant::fromValue(Qt::DotLine), &Border::getPenStyle);
    addRow("penCapStyle", border, QVariant::fromValue(Qt::RoundCap), &Border::getPenCapStyle);
    addRow("penJoinStyle", border, QVariant::fromValue(Qt::MiterJoin), &Border::getPenJoinStyle);
    addRow("enabled", new Transposer(this), true, &Transposer::isEnabled);
}

void tst_Properties::addConnectionRows()
{
    auto *connection = new PolylineConnection(this);
    addRow("points", connection, QVariant::fromValue(QList<QPoint>{{1, 2}, {3, 4}}),
           &PolylineConnection::getPoints);
    addRow("sourceAnchor", connection, boxed<IConnectionAnchor>(new XYAnchor(QPoint(), this)),
           &PolylineConnection::getSourceAnchor);
    addRow("targetAnchor", connection, boxed<IConnectionAnchor>(new XYAnchor(QPoint(), this)),
           &PolylineConnection::getTargetAnchor);
    addRow("connectionRouter", connection,
           boxed<IConnectionRouter>(new BendpointConnectionRouter(this)),
           &PolylineConnection::getConnectionRouter);
    addRow("routingConstraint", connection, QVariantList{1, 2},
           &PolylineConnection::getRoutingConstraint);
    auto *smooth = new PolylineFConnection(this);
    addRow("pointsf", smooth, QVariant::fromValue(QList<QPointF>{{1, 2.5}, {3, 4}}),
           &PolylineFConnection::getPointsF);
    addRow("targetAnchor", smooth, boxed<IConnectionAnchor>(new XYAnchor(QPoint(), this)),
           &PolylineFConnection::getTargetAnchor);
    auto *bendpoint = new RelativeBendpoint(this);
    addRow("connection", bendpoint, boxed<IConnection>(connection),
           &RelativeBendpoint::getConnection);
    addRow("weight", bendpoint, 0.25F, &RelativeBendpoint::getWeight);
    addRow("location", new AbsoluteBendpoint(this), QPoint(3, 4), &AbsoluteBendpoint::getLocation);
    addRow("location", new XYAnchor(QPoint(), this), QPoint(5, 6), &XYAnchor::getReferencePoint);
    addRow("owner", new ChopboxAnchor(this), boxed<Figure>(connection), &ChopboxAnchor::getOwner);
}

void tst_Properties::addViewRows()
{
    auto *layer = new ConnectionLayer(this);
    addRow("extentPadding", layer, 13, &FreeformLayer::getExtentPadding);
    addRow("contentMonitored", layer, true, &FreeformLayer::isContentMonitored);
    addRow("connectionRouter", layer, boxed<IConnectionRouter>(NullRouter::instance()),
           &ConnectionLayer::getConnectionRouter);
    m_viewer = std::make_unique<FreeformViewer>();
    FreeformViewer *viewer = m_viewer.get();
    auto *canvas = qobject_cast<FreeformWidget *>(viewer->widget());
    auto *pane = new FreeformLayeredPane(this); // with something in it, or it is not scaled
    layer->add(new Figure(this), QRect(0, 0, 100, 100));
    pane->addLayer(layer, QStringLiteral("figures"));
    addRow("content", viewer, boxed<Figure>(pane), &FreeformViewer::getContent);
    addRow("scale", viewer, 2.0, &FreeformViewer::getScale);
    addRow("extentHandling", viewer, false, &FreeformViewer::extentHandlingEnabled);
    addRow("highlighted", canvas, true, &FreeformWidget::isHighlighted);
    addRow("highlightStyle", canvas, 1, &FreeformWidget::getHighlightStyle);
}

void tst_Properties::writtenPropertyIsWhatTheGetterReturns()
{
    QFETCH(QObject *, object);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(Getter, getter);
    QVERIFY(getter() != value);

    QVERIFY(object->setProperty(property.constData(), value)); // false for a dynamic property

    QCOMPARE(getter(), value);
    QCOMPARE(object->property(property.constData()), value);
}

void tst_Properties::setterKeepsItsOwnRules()
{
    Figure figure;
    figure.setMaximumSize(QSize(10, 10));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("setMinimumSize")));

    figure.setProperty("minimumSize", QSize(20, 20));
    figure.setProperty("margin", -5);

    QCOMPARE(figure.getMinimumSize(), QSize(0, 0));
    QCOMPARE(figure.getMargin(), 0);
}

void tst_Properties::writtenLayoutMayBeOfAnyKind()
{
    Figure figure;
    auto *box = new HBoxLayout(&figure);

    QVERIFY(figure.setProperty("layoutManager", QVariant::fromValue(box)));

    QCOMPARE(figure.getLayoutManager(), box);
}

void tst_Properties::figureTreeIsReadThroughProperties()
{
    Figure parent;
    parent.setLayoutManager(new XYLayout(&parent));
    auto *child = new Figure(&parent);

    parent.add(child);

    QCOMPARE(parent.property("childFigures").value<QList<Figure *>>(), {child});
    QCOMPARE(child->property("parent").value<Figure *>(), &parent);
    QCOMPARE(parent.getLayoutManager()->property("figure").value<Figure *>(), &parent);
}

// What a property change is announced by, the property is read by.
void tst_Properties::publishedPropertyNamesAreProperties()
{
    const auto has = [](const QMetaObject &meta, const QString &name) {
        return meta.indexOfProperty(name.toLatin1().constData()) >= 0;
    };

    QVERIFY(has(Figure::staticMetaObject, Figure::PROPERTY_PARENT));
    for (const QMetaObject *meta :
         {&PolylineConnection::staticMetaObject, &PolylineFConnection::staticMetaObject}) {
        QVERIFY(has(*meta, IConnection::PROPERTY_CONNECTION_ROUTER));
        QVERIFY(has(*meta, IConnection::PROPERTY_POINTS));
        QVERIFY(has(*meta, IConnection::PROPERTY_POINTSF));
    }
}

void tst_Properties::notifyingPropertiesNameTheirSignal_data()
{
    QTest::addColumn<MetaObject>("meta");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("signal");

    const auto row = [](const QMetaObject &meta, const char *property, const char *signal) {
        QTest::newRow(meta.className()) << &meta << QByteArray(property) << QByteArray(signal);
    };
    row(FreeformViewer::staticMetaObject, "scale", "scaleChanged(double)");
    row(FreeformLayer::staticMetaObject, "freeformExtent", "extentChanged()");
    row(FreeformLayeredPane::staticMetaObject, "freeformExtent", "extentChanged()");
    row(FreeformLayout::staticMetaObject, "freeformExtent", "extentChanged()");
    row(FreeformStackLayout::staticMetaObject, "freeformExtent", "extentChanged()");
}

void tst_Properties::notifyingPropertiesNameTheirSignal()
{
    QFETCH(MetaObject, meta);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, signal);

    const QMetaProperty found = meta->property(meta->indexOfProperty(property.constData()));

    QCOMPARE(found.notifySignal().methodSignature(), signal);
}

void tst_Properties::growingExtentIsAnnounced()
{
    FreeformLayer layer;
    auto *figure = new Figure(&layer);
    layer.add(figure, QRect(0, 0, 10, 10));
    layer.validate();
    const int index = layer.metaObject()->indexOfProperty("freeformExtent");
    const QRect before = layer.property("freeformExtent").toRect();
    QSignalSpy announced(&layer, layer.metaObject()->property(index).notifySignal());

    figure->setBounds(QRect(0, 0, 50, 50));

    QCOMPARE(announced.count(), 1);
    QCOMPARE(before, QRect(0, 0, 10, 10));
    QCOMPARE(layer.property("freeformExtent").toRect(), QRect(0, 0, 50, 50));
}

// The colour behind the content is a dynamic property of the widget, and has to stay one.
void tst_Properties::canvasKeepsItsDynamicBackground()
{
    FreeformViewer viewer;
    QWidget *canvas = viewer.widget();

    const bool declared = canvas->setProperty("backgroundColor", QColor(Qt::blue));

    QVERIFY(!declared);
    QVERIFY(canvas->dynamicPropertyNames().contains("backgroundColor"));
}

QTEST_MAIN(tst_Properties)
#include "tst_properties.moc"
