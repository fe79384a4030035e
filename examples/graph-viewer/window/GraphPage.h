#pragma once

#include <figura/layout/PageLayout.h>

namespace GraphViewer {

/// A printed page with the name of the graph below it.
class GraphPage : public Velmora::Figura::PageLayout
{
    Q_OBJECT

public:
    GraphPage(const QString &caption, QObject *parent = nullptr);

    void decoratePage(QPainter *painter, const QVariant &data) override;

private:
    QString m_caption;
};

} // namespace GraphViewer
