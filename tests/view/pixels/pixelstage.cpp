#include "pixelstage.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace Velmora::Figura::Test {
namespace {

constexpr QSize windowSize(220, 160);

} // namespace

PixelStage::PixelStage()
{
    viewer.setFrameShape(QFrame::NoFrame);
    viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer.resize(windowSize);
    widget()->setProperty("backgroundColor", QColor(250, 250, 240));
    pane.addLayer(&ground, QStringLiteral("ground"));
    pane.addLayer(&stage, QStringLiteral("stage"));
    pane.addLayer(&top, QStringLiteral("probe"));
}

bool PixelStage::show(double scale, const QPoint &topLeft)
{
    m_scale = scale;
    auto *cover = new Figure(&ground, QColor(200, 220, 255));
    ground.add(cover, units(-200, -150, 700, 500));
    auto *stripe = new Figure(&ground, QColor(255, 235, 200));
    ground.add(stripe, units(15, 30, 50, 90));

    viewer.setContent(&pane);
    viewer.show();
    const bool isExposed = QTest::qWaitForWindowExposed(&viewer);
    QPoint corner = topLeft;
    viewer.setScale(scale, &corner);
    settle();
    return isExposed;
}

int PixelStage::units(int pixels) const
{
    return std::max(1, int(std::lround(pixels / m_scale)));
}

QRect PixelStage::units(int x, int y, int width, int height) const
{
    return {int(std::lround(x / m_scale)), int(std::lround(y / m_scale)), units(width),
            units(height)};
}

} // namespace Velmora::Figura::Test
