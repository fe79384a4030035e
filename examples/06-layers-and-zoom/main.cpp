// Layers are switched on and off, and the view is zoomed: neither touches the figures.
#include <figura/Figura.h>

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

using namespace Velmora::Figura;

namespace {

FreeformLayer *addLayer(FreeformLayeredPane *pane, const QString &name)
{
    auto *layer = new FreeformLayer(pane);
    pane->addLayer(layer, name);
    return layer;
}

void addRoom(FreeformLayer *layer, const QString &name, const QRect &place)
{
    auto *room = new Rectangle(layer);
    room->setEnabledBGColor(QColor(0xd7, 0xe8, 0xfa));
    room->setLayoutManager(new StackLayout(room));
    auto *text = new TextFigure(name, room, Qt::transparent);
    text->setAlignment(Qt::AlignCenter);
    room->add(text);
    layer->add(room, place);
}

void addNote(FreeformLayer *layer, const QString &text, const QPoint &place)
{
    auto *note = new TextFigure(text, layer, QColor(0xff, 0xf3, 0x9a));
    note->setBorder(new SimpleBorder(note));
    layer->add(note, QRect(place, QSize(-1, -1)));
}

QCheckBox *makeSwitch(LayeredPane *pane, const QString &layerName)
{
    auto *box = new QCheckBox(layerName);
    box->setChecked(true);
    QObject::connect(box, &QCheckBox::toggled, pane,
                     [pane, layerName](bool on) { pane->getLayer(layerName)->setVisible(on); });
    return box;
}

QSlider *makeZoomSlider(FreeformViewer *viewer)
{
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(25, 400); // percent
    slider->setValue(100);
    QObject::connect(slider, &QSlider::valueChanged, viewer,
                     [viewer](int percent) { viewer->setScale(percent / 100.0); });
    QObject::connect(viewer, &FreeformViewer::scaleChanged, slider, [slider](double scale) {
        const QSignalBlocker blocker(slider);
        slider->setValue(qRound(scale * 100));
    });
    return slider;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(20);
    FreeformLayer *plan = addLayer(&pane, QStringLiteral("plan"));
    FreeformLayer *notes = addLayer(&pane, QStringLiteral("notes")); // added later: on top
    addRoom(plan, QStringLiteral("Hall"), QRect(80, 60, 120, 160));
    addRoom(plan, QStringLiteral("Kitchen"), QRect(200, 60, 140, 80));
    addRoom(plan, QStringLiteral("Study"), QRect(200, 140, 140, 80));
    addNote(notes, QStringLiteral("paint this wall"), QPoint(155, 175));
    rebuildPaths(&pane);

    QWidget window;
    auto *viewer = new FreeformViewer;
    viewer->setContent(&pane);
    auto *controls = new QHBoxLayout;
    controls->addWidget(makeSwitch(&pane, QStringLiteral("plan")));
    controls->addWidget(makeSwitch(&pane, QStringLiteral("notes")));
    controls->addWidget(makeZoomSlider(viewer));
    auto *rows = new QVBoxLayout(&window);
    rows->addWidget(viewer);
    rows->addLayout(controls);
    window.resize(460, 340);
    window.show();
    if (argc == 2) // a picture of the window instead of the window
        return window.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    return app.exec();
}
