// Boxes in boxes: a panel that places its own parts, whatever size it is given.
#include <figura/Figura.h>

#include <QApplication>

using namespace Velmora::Figura;

namespace {

Figure *makeCell(const QString &text, const QColor &color, QObject *owner)
{
    auto *cell = new TextFigure(text, owner, color);
    cell->setAlignment(Qt::AlignCenter);
    cell->setMargin(6);
    cell->setExpandingDirections(Qt::Horizontal | Qt::Vertical); // fill the room, however large
    return cell;
}

Figure *makeButtonRow(QObject *owner)
{
    auto *row = new Figure(owner);
    auto *buttons = new HBoxLayout(row);
    buttons->setSpacing(6);
    buttons->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    row->setLayoutManager(buttons);

    const QColor grey(0xe4, 0xe4, 0xe4);
    Figure *help = makeCell(QStringLiteral("Help"), grey, row);
    help->setExpandingDirections({}); // takes all surplus width, but stays as it is at the left
    row->add(help, 0, 1, -1);
    row->add(makeCell(QStringLiteral("Cancel"), grey, row), 0, 0, -1);
    row->add(makeCell(QStringLiteral("OK"), QColor(0xd7, 0xe8, 0xfa), row), 0, 0, -1);
    return row;
}

Figure *makePanel(QObject *owner)
{
    auto *panel = new Figure(owner, Qt::white);
    panel->setBorder(new SimpleBorder(panel));
    panel->setMargin(8);
    panel->setLayoutManager(new VBoxLayout(panel));
    panel->getLayoutManager()->setSpacing(6);
    panel->add(makeCell(QStringLiteral("Heading"), QColor(0xd7, 0xe8, 0xfa), panel), 0, 0, -1);
    panel->add(makeCell(QStringLiteral("Body"), QColor(0xfb, 0xe3, 0xc0), panel), 1, 0, -1);
    panel->add(makeButtonRow(panel), 0, 0, -1);
    return panel;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("panels"));
    layer->add(makePanel(layer), QRect(20, 20, -1, -1)); // as large as it asks to be
    layer->add(makePanel(layer), QRect(230, 20, 300, 180));

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.resize(560, 230);
    viewer.show();
    if (argc == 2) // a picture of the window instead of the window
        return viewer.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    return app.exec();
}
