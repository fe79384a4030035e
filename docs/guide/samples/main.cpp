// Renders a scene of the guide to a picture: guide-samples SCENE FILE.
#include "scenes.h"

#include <QApplication>
#include <QHash>

#include <cstdio>

using namespace GuideSamples;

namespace {

const QHash<QString, QImage (*)()> scenes{
    {QStringLiteral("circle-layout"), circleLayout},
    {QStringLiteral("coordinates"), coordinates},
    {QStringLiteral("damage"), damage},
    {QStringLiteral("diagrams"), diagrams},
    {QStringLiteral("diamonds"), diamonds},
    {QStringLiteral("many-figures"), manyFigures},
    {QStringLiteral("routers"), routers},
    {QStringLiteral("survivors"), survivors},
    {QStringLiteral("zoomed-at-mouse"), zoomedAtMouse},
};

int usage()
{
    std::fputs("usage: guide-samples SCENE FILE\n", stderr);
    for (auto scene = scenes.constBegin(); scene != scenes.constEnd(); ++scene)
        std::fprintf(stderr, "  %s\n", qPrintable(scene.key()));
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc != 3 || !scenes.contains(QString::fromLocal8Bit(argv[1])))
        return usage();
    const QImage picture = scenes.value(QString::fromLocal8Bit(argv[1]))();
    return picture.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
