#include "mortalworld.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/ManhattanConnectionRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/RelativeBendpoint.h>
#include <figura/connection/XYAnchor.h>
#include <figura/decoration/ConnectionEndpointLocator.h>
#include <figura/decoration/Decoration.h>
#include <figura/decoration/MidpointLocator.h>
#include <figura/decoration/PolygonDecoration.h>
#include <figura/decoration/PolylineDecoration.h>
#include <figura/decoration/RelativeLocator.h>
#include <figura/figure/AncestorHelper.h>
#include <figura/figure/SimpleBorder.h>
#include <figura/layout/FreeformLayout.h>
#include <figura/layout/HBoxLayout.h>
#include <figura/layout/StackLayout.h>
#include <figura/layout/XYLayout.h>
#include <figura/shape/Ellipse.h>
#include <figura/shape/LabelFigure.h>
#include <figura/shape/Rectangle.h>
#include <figura/shape/TextFigure.h>
#include <figura/view/FreeformLayer.h>
#include <figura/view/FreeformLayeredPane.h>
#include <figura/view/FreeformViewer.h>
#include <figura/view/FreeformWidget.h>
#include <figura/view/UpdateManager.h>

#include <QPrinter>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

namespace Velmora::Figura::Test {
namespace {

// A decoration that is a filled square.
class Mark : public Decoration
{
public:
    using Decoration::Decoration;

protected:
    void regeneratePath(const QRectF &rect) override
    {
        painterPath().clear();
        painterPath().addRect(rect);
    }
};

class OpenManhattanRouter : public MortalRouter<ManhattanConnectionRouter>
{
public:
    using MortalRouter::isColumnReservedBy;
    using MortalRouter::isRowReservedBy;
    using MortalRouter::MortalRouter;
};

QVariant asConstraint(QObject *locator)
{
    return QVariant::fromValue<QObject *>(locator);
}

QVariant bendpointsOf(IConnection *connection)
{
    return QList<QVariant>{QVariant::fromValue(AbsoluteBendpoint(150, 150)),
                           QVariant::fromValue(RelativeBendpoint(connection, nullptr))};
}

bool isNotified(const Figure *figure)
{
    return figure->getFlag(Figure::FLAG_NOTIFIED);
}

} // namespace

template<typename T>
T *MortalWorld::keep(const char *name, T *part)
{
    m_parts.insert(QLatin1String(name), part);
    if (m_made)
        m_made(QLatin1String(name), part);
    return part;
}

MortalWorld::MortalWorld(const Made &made)
    : m_made(made)
{
    makeView();
    makeGroup();
    makeBoxes();
    makeOwners();
    makeWire();
    makeCurve();
    makeListeners();

    auto *viewer = get<FreeformViewer>("viewer");
    viewer->setContent(figure("content"));
    viewer->resize(300, 240);
    viewer->show();
    QCoreApplication::processEvents();
}

MortalWorld::~MortalWorld()
{
    for (const QPointer<QObject> &part : std::as_const(m_parts))
        delete part;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void MortalWorld::makeView()
{
    auto *viewer = keep("viewer", new FreeformViewer);
    keep("widget", viewer->widget());
    keep("update manager", viewer->getUpdateManager());
    viewer->setPageLayout(keep("page", new MortalPage(&fate, "page")));

    auto *content = keep("content", new FreeformLayeredPane);
    keep("content layout", content->getLayoutManager());
    auto *figures = keep("figure layer", new FreeformLayer);
    keep("figure layer layout", figures->getLayoutManager());
    auto *connections = keep("connection layer", new ConnectionLayer);
    keep("connection layer layout", connections->getLayoutManager());
    auto *pane = keep("inner pane", new LayeredPane);
    auto *inner = keep("inner layer", new Layer);
    content->addLayer(figures, QStringLiteral("figures"));
    content->addLayer(connections, QStringLiteral("connections"));
    content->addLayer(pane, QStringLiteral("pane"));
    pane->addLayer(inner, QStringLiteral("inner"));
}

// A figure with a border, and children that it places by their rectangles.
void MortalWorld::makeGroup()
{
    auto *group = keep("group", new MortalFigure<Figure>(&fate, "group", nullptr, Qt::white));
    auto *layout = keep("group layout", new MortalLayout<XYLayout>(&fate, "group layout"));
    auto *member = keep("member", new MortalFigure<Rectangle>(&fate, "member"));
    auto *sibling = keep("sibling", new Ellipse);
    group->setLayoutManager(layout);
    group->setBorder(keep("border", new SimpleBorder(nullptr, 1)));
    group->setTooltip(keep("tooltip", new Figure));
    figure("figure layer")->add(group, QRect(10, 10, 100, 90));
    group->add(keep("elder", new Rectangle), QRect(50, 5, 20, 20));
    group->add(member, QRect(5, 5, 40, 30));
    group->add(sibling, QRect(20, 20, 40, 30));
}

// Rows and stacks, whose children are measured.
void MortalWorld::makeBoxes()
{
    auto *box = keep("box", new MortalFigure<Figure>(&fate, "box", nullptr, Qt::yellow));
    auto *boxed = keep("boxed", new MortalFigure<Figure>(&fate, "boxed", nullptr, Qt::red));
    box->setLayoutManager(keep("box layout", new MortalLayout<HBoxLayout>(&fate, "box layout")));
    box->add(keep("text", new TextFigure(QStringLiteral("text"))), 1, 1, -1);
    boxed->setPreferredSize(QSize(20, 10));
    box->add(boxed, 1, 1, -1);
    box->add(keep("last", new Figure(nullptr, Qt::green)), QSize(10, 10));
    figure("figure layer")->add(box, QRect(120, 10, 120, 30));

    auto *stack = keep("stack", new Figure(nullptr, Qt::gray));
    auto *layout = keep("stack layout", new MortalLayout<StackLayout>(&fate, "stack layout"));
    stack->setLayoutManager(layout);
    stack->add(keep("stacked", new MortalFigure<Figure>(&fate, "stacked", nullptr, Qt::cyan)));
    figure("figure layer")->add(stack, QRect(120, 50, 40, -1));
    figure("figure layer")
        ->add(keep("label", new LabelFigure(QStringLiteral("label"))), QRect(180, 50, -1, -1));
}

// What connections and decorations hang on.
void MortalWorld::makeOwners()
{
    auto *owner = keep("owner", new MortalFigure<Rectangle>(&fate, "owner"));
    auto *other = keep("other owner", new Ellipse);
    figure("figure layer")->add(owner, QRect(20, 140, 60, 40));
    figure("figure layer")->add(other, QRect(200, 170, 60, 40));

    auto *place = keep("place", new RelativeLocator(owner, 0.0, 0.0));
    auto *mark = keep("mark", new MortalFigure<Mark>(&fate, "mark", owner, place));
    mark->setPreferredSize(QSize(8, 8));
    figure("figure layer")->add(mark);
}

void MortalWorld::makeWire()
{
    auto *wire = keep("wire", new MortalFigure<PolylineConnection>(&fate, "wire"));
    auto *router = keep("grid router", new OpenManhattanRouter(&fate, "grid router"));
    auto *source = keep("source anchor",
                        new MortalAnchor<ChopboxAnchor>(&fate, "source anchor", figure("owner")));
    auto *target = keep("target anchor", new MortalAnchor<EllipseAnchor>(&fate, "target anchor",
                                                                         figure("other owner")));
    auto *layer = get<ConnectionLayer>("connection layer");
    layer->setConnectionRouter(router);
    layer->add(wire);
    wire->setSourceAnchor(source);
    wire->setTargetAnchor(target);
    wire->setTargetDecoration(keep("arrow", new MortalFigure<PolygonDecoration>(&fate, "arrow")));
    keep("next arrow", new PolygonDecoration);

    auto *middle =
        keep("middle", new MortalLocator<MidpointLocator>(&fate, "middle", wire, 0, nullptr));
    auto *caption = new MortalFigure<TextFigure>(&fate, "caption", QStringLiteral("caption"));
    wire->add(keep("caption", caption), asConstraint(middle));
}

void MortalWorld::makeCurve()
{
    auto *curve = keep("curve", new MortalFigure<PolylineFConnection>(&fate, "curve"));
    auto *router =
        keep("bend router", new MortalRouter<BendpointConnectionRouter>(&fate, "bend router"));
    auto *nested = keep("nested anchor",
                        new MortalAnchor<ChopboxAnchor>(&fate, "nested anchor", figure("member")));
    auto *fixed = keep("fixed anchor", new XYAnchor(QPoint(250, 120)));
    figure("connection layer")->add(curve);
    curve->setConnectionRouter(router);
    curve->setRoutingConstraint(bendpointsOf(curve));
    curve->setSourceAnchor(nested);
    curve->setTargetAnchor(fixed);
    curve->setSourceDecoration(keep("tail", new PolylineDecoration));

    auto *end = keep("end", new ConnectionEndpointLocator(curve, true));
    auto *tag = keep("tag", new MortalFigure<Figure>(&fate, "tag", nullptr, Qt::magenta));
    tag->setPreferredSize(QSize(12, 8));
    curve->add(tag, asConstraint(end));
}

void MortalWorld::makeListeners()
{
    auto *listener = keep("listener", new MortalListener(&fate));
    figure("member")->addAncestorListener(listener);
    figure("member")->addPropertyChangeListener(listener);
    figure("wire")->addPropertyChangeListener(listener);
    get<IConnectionAnchor>("source anchor")->addAnchorListener(listener);
    keep("helper", new AncestorHelper(figure("member")));
    get<Layout>("group layout")->addListener(&m_layoutListener);
}

void MortalWorld::live()
{
    moveFigures();
    update();
    paint();
    search();
    regroup();
    constrain();
    update();
    reroute();
    reattach();
    update();
    redecorate();
    rearrangeLayers();
    update();
    zoom();
    replaceContent();
    if (printsPages)
        print();
    update();
    paint();
}

void MortalWorld::moveFigures()
{
    for (const char *name : {"member", "owner", "other owner", "group", "tag", "caption", "boxed",
                             "stacked", "content", "arrow", "box", "mark", "wire", "curve"}) {
        if (Figure *moved = figure(name))
            moved->setBounds(moved->getBounds().translated(2, 1).adjusted(0, 0, 1, 1));
    }
    if (auto *fixed = get<XYAnchor>("fixed anchor"))
        fixed->setLocation(QPoint(255, 125));
    if (Figure *layer = figure("figure layer"))
        layer->translate(1, 1);
    if (Figure *group = figure("group"))
        group->setVisible(false);
    if (Figure *group = figure("group"))
        group->setVisible(true);
}

void MortalWorld::update()
{
    for (const char *name : {"boxed", "stacked", "text", "wire", "curve", "group"}) {
        if (Figure *stale = figure(name))
            stale->revalidate();
    }
    if (auto *manager = get<UpdateManager>("update manager"))
        manager->performUpdate();
}

void MortalWorld::paint()
{
    auto *widget = get<FreeformWidget>("widget");
    if (widget)
        widget->printToPixmap(QStringLiteral("figures"), QRect(0, 0, 280, 230));
    widget = get<FreeformWidget>("widget");
    if (widget)
        widget->printToPixmap(QStringLiteral("connections"), QRect(0, 0, 280, 230));
}

void MortalWorld::search()
{
    const FatefulSearch every(&fate);
    for (const QPoint &point : {QPoint(25, 25), QPoint(45, 45), QPoint(50, 160), QPoint(140, 20)}) {
        if (Figure *content = figure("content"))
            content->findFigureAt(point.x(), point.y(), every);
        if (Figure *wire = figure("wire"))
            wire->contains(point);
    }
    QList<Figure *> found;
    for (const bool containedOnly : {false, true}) {
        if (Figure *content = figure("content"))
            content->findFigures(found, QRect(0, 0, 1000, 1000), every, containedOnly);
    }
}

void MortalWorld::zoom()
{
    if (auto *viewer = get<FreeformViewer>("viewer"))
        viewer->setScale(2.0);
    if (auto *viewer = get<FreeformViewer>("viewer"))
        viewer->setViewLocation(QPoint(-30, -20));
    if (auto *viewer = get<FreeformViewer>("viewer"))
        viewer->scaleToFit();
    if (auto *viewer = get<FreeformViewer>("viewer"))
        viewer->scaleToNormal();
}

void MortalWorld::regroup()
{
    QPointer<Figure> group = figure("group");
    if (group)
        group->remove(figure("member"));
    if (group && group->getLayoutManager())
        group->add(figure("member"), QRect(6, 6, 40, 30), 0);
    if (Figure *layer = figure("figure layer"))
        layer->remove(group);
    if (Figure *layer = figure("figure layer"); layer && layer->getLayoutManager())
        layer->add(group, QRect(12, 12, 100, 90));
}

void MortalWorld::constrain()
{
    if (auto *layout = get<Layout>("group layout"))
        layout->setConstraint(figure("member"), QRect(8, 8, -1, 25));
    if (auto *layout = get<Layout>("box layout"))
        layout->setConstraint(figure("boxed"), QSize(25, 12));
    if (auto *text = get<TextFigure>("text"))
        text->setText(QStringLiteral("longer text"));
    if (auto *label = get<LabelFigure>("label"))
        label->setText(QStringLiteral("longer label"));
    if (auto *group = figure("group"))
        rebuildPaths(group);
}

void MortalWorld::reroute()
{
    if (auto *wire = get<IConnection>("wire"))
        wire->setConnectionRouter(get<IConnectionRouter>("bend router"));
    if (auto *wire = get<IConnection>("wire"))
        wire->setRoutingConstraint(bendpointsOf(wire));
    if (auto *wire = get<IConnection>("wire"))
        wire->setConnectionRouter(get<IConnectionRouter>("grid router"));
    if (auto *curve = get<IConnection>("curve"))
        curve->setRoutingConstraint(bendpointsOf(curve));
}

void MortalWorld::reattach()
{
    if (auto *wire = get<IConnection>("wire"))
        wire->setSourceAnchor(get<IConnectionAnchor>("nested anchor"));
    if (auto *wire = get<IConnection>("wire"))
        wire->setSourceAnchor(get<IConnectionAnchor>("source anchor"));
    for (const char *name : {"wire", "curve"}) {
        if (auto *layer = get<ConnectionLayer>("connection layer"))
            layer->remove(figure(name));
        if (auto *layer = get<ConnectionLayer>("connection layer");
            layer && layer->getLayoutManager())
            layer->add(figure(name));
    }
    if (auto *curve = get<IConnection>("curve"))
        curve->setConnectionRouter(get<IConnectionRouter>("bend router"));
}

void MortalWorld::redecorate()
{
    auto *next = get<IRotatableDecoration>("next arrow");
    if (auto *wire = get<PolylineConnection>("wire"); wire && wire->getLayoutManager() && next)
        wire->setTargetDecoration(next);
    if (auto *wire = figure("wire"))
        wire->remove(figure("caption"));
}

void MortalWorld::rearrangeLayers()
{
    if (auto *content = get<LayeredPane>("content"))
        content->removeLayer(QStringLiteral("connections"));
    if (auto *content = get<LayeredPane>("content"); content && content->getLayoutManager()) {
        if (auto *layer = get<Layer>("connection layer"))
            content->addLayerAbove(layer, QStringLiteral("connections"),
                                   get<Layer>("figure layer"));
    }
}

void MortalWorld::replaceContent()
{
    FreeformLayeredPane other;
    if (auto *viewer = get<FreeformViewer>("viewer"))
        viewer->setContent(&other);
    if (Figure *content = figure("content"))
        content->removeNotify();
    Figure *content = figure("content");
    if (auto *viewer = get<FreeformViewer>("viewer"); viewer && content)
        viewer->setContent(content);
}

void MortalWorld::print()
{
    const QTemporaryDir folder;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("page.pdf")));
    if (auto *viewer = get<FreeformViewer>("viewer"))
        viewer->print(&printer, QStringLiteral("figures"), QRect(0, 0, 280, 230));
}

QStringList MortalWorld::contradictions() const
{
    QStringList found;
    for (auto part = m_parts.cbegin(); part != m_parts.cend(); ++part) {
        if (auto *parent = qobject_cast<Figure *>(part.value().data()))
            checkChildren(&found, parent);
    }
    checkLines(&found);
    checkQueue(&found);
    return found;
}

void MortalWorld::checkChildren(QStringList *found, Figure *parent) const
{
    const Layout *layout = parent->getLayoutManager();
    if (!layout)
        return;
    const QList<Figure *> children = parent->childFigures();
    if (layout->childFigureCount() != children.size())
        found->append(QStringLiteral("the count of the children is wrong"));
    for (const Figure *child : children) {
        // Only what the world has made itself can be told from something that is gone.
        if (!m_parts.values().contains(child) && !qobject_cast<LabelFigure *>(parent)) {
            found->append(QStringLiteral("a child is not there"));
            continue;
        }
        if (child->getParentFigure() != parent)
            found->append(QStringLiteral("a child has another parent"));
        if (isNotified(child) != isNotified(parent))
            found->append(QStringLiteral("a child and its parent are not displayed together"));
    }
}

void MortalWorld::checkLines(QStringList *found) const
{
    auto *router = get<OpenManhattanRouter>("grid router");
    if (!router)
        return;
    auto *wire = get<IConnection>("wire");
    for (int line = -50; line < 400; ++line) {
        const bool row = !router->rowUsable(nullptr, line);
        const bool column = !router->colUsable(nullptr, line);
        if (row != (wire && router->isRowReservedBy(wire, line)) ||
            column != (wire && router->isColumnReservedBy(wire, line)))
            found->append(QStringLiteral("line %1 is reserved for nobody").arg(line));
    }
}

// What is gone counts as not queued.
void MortalWorld::checkQueue(QStringList *found) const
{
    auto *manager = get<UpdateManager>("update manager");
    if (!manager)
        return;
    manager->performUpdate();
    int announcements = 0;
    const auto connection = QObject::connect(manager, &UpdateManager::aboutToValidate,
                                             [&announcements] { ++announcements; });
    manager->performUpdate();
    QObject::disconnect(connection);
    if (announcements > 0)
        found->append(QStringLiteral("the queue is not empty after an update"));
}

QString MortalWorld::pictureError()
{
    auto *viewer = get<FreeformViewer>("viewer");
    if (!viewer)
        return {};
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(viewer, &update);
    }
    const auto pixels = [](const QPixmap &picture) {
        return picture.toImage().convertToFormat(QImage::Format_RGB32);
    };
    const QImage shown = pixels(viewer->screen()->grabWindow(viewer->winId()));
    return shown == pixels(viewer->grab()) ? QString() : QStringLiteral("the picture is stale");
}

} // namespace Velmora::Figura::Test
