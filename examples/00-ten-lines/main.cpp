#include <figura/FiguraDiagram.h>

#include <QApplication>

using namespace Velmora::Figura;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    Diagram diagram;
    auto *water = diagram.add(new RoundedRectangle, QRect(40, 40, 130, 60));
    auto *tea = diagram.add(new Ellipse, QRect(260, 130, 130, 70));
    Diagram::setText(water, QStringLiteral("Boil water"));
    Diagram::setText(tea, QStringLiteral("Make tea"));
    diagram.setArrow(diagram.connect(water, tea), Diagram::End::Target, Diagram::Arrow::Filled);
    DiagramView view(&diagram);
    view.show();
    return argc == 2 ? !exportDiagram(&diagram, QString::fromLocal8Bit(argv[1])) : app.exec();
}
