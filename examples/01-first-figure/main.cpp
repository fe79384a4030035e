#include <figura/Figura.h>

#include <QApplication>

using namespace Velmora::Figura;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("figures"));

    auto *box = new RoundedRectangle(layer);
    box->setEnabledBGColor(QColor(0xd7, 0xe8, 0xfa));
    box->setLayoutManager(new StackLayout(box));
    auto *text = new TextFigure(QStringLiteral("Hello, figure"), box, Qt::transparent);
    text->setAlignment(Qt::AlignCenter);
    box->add(text);
    layer->add(box, QRect(40, 40, 160, 60));

    auto *circle = new Ellipse(layer);
    circle->setEnabledBGColor(QColor(0xfb, 0xe3, 0xc0));
    layer->add(circle, QRect(270, 160, 60, 60));

    auto *line = new PolylineF(layer);
    line->setLinePoints({QPointF(200, 70), QPointF(300, 70), QPointF(300, 160)});
    layer->add(line);
    rebuildPaths(&pane); // shapes that are built before they are shown have no outline yet

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.resize(400, 280);
    viewer.show();
    if (argc == 2) // a picture of the window instead of the window
        return viewer.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    return app.exec();
}
