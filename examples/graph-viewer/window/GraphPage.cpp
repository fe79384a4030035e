#include "GraphPage.h"

#include <QPainter>
#include <QVariant>

namespace GraphViewer {

GraphPage::GraphPage(const QString &caption, QObject *parent)
    : PageLayout(parent)
    , m_caption(caption)
{
}

void GraphPage::decoratePage(QPainter *painter, const QVariant &)
{
    const QRectF content = getContentRect(painter);
    const QRectF footer(content.left(), content.bottom(), content.width(), content.top() / 2);
    painter->setFont(QFont(QStringLiteral("Helvetica"), 8));
    painter->setPen(Qt::darkGray);
    painter->drawText(footer, Qt::AlignRight | Qt::AlignBottom, m_caption);
}

} // namespace GraphViewer
