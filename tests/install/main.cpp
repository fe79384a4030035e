// Whoever finds the package gets every header, by both of its names, the library and the Qt modules
// behind it.
#include <figura/Figura.h>

#include <Figura/Figure>
#include <Figura/Rectangle>
#include <QApplication>

using namespace Velmora::Figura;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    Figure root;
    root.setLayoutManager(new XYLayout(&root));
    root.setBounds(QRect(0, 0, 100, 100));
    auto *child = new Rectangle(&root);
    root.add(child, QRect(10, 20, 30, 40));
    root.validate();
    rebuildPaths(&root);

    return root.findFigureAt(QPoint(15, 25)) == child ? 0 : 1;
}
