#include <figura/view/LayeredPane.h>

#include <figura/layout/StackLayout.h>

#include <QMessageLogger>

namespace Velmora::Figura {

LayeredPane::LayeredPane(QObject *parent)
    : Layer(parent)
{
    setLayoutManager(new StackLayout(this));
}

LayeredPane::~LayeredPane() = default;

void LayeredPane::addLayer(Layer *layer, const QString &key)
{
    addLayerAbove(layer, key, nullptr);
}

void LayeredPane::addLayerAbove(Layer *layer, const QString &key, Layer *above)
{
    addBeside("addLayerAbove", layer, key, above, 1);
}

void LayeredPane::addLayerBeneath(Layer *layer, const QString &key, Layer *beneath)
{
    addBeside("addLayerBeneath", layer, key, beneath, 0);
}

Layer *LayeredPane::getLayer(const QString &key)
{
    if (Layer *layer = ownLayer(key))
        return layer;

    for (const QString &paneKey : std::as_const(m_nestedPaneKeys)) {
        auto *pane = qobject_cast<LayeredPane *>(ownLayer(paneKey));
        if (Layer *layer = pane ? pane->getLayer(key) : nullptr)
            return layer;
    }
    return nullptr;
}

Layer *LayeredPane::removeLayer(const QString &key)
{
    const QPointer<Layer> layer = m_layers.take(key);
    m_nestedPaneKeys.removeAll(key);
    if (layer)
        remove(layer);
    return layer;
}

Layer *LayeredPane::ownLayer(const QString &key) const
{
    return m_layers.value(key);
}

void LayeredPane::addBeside(const char *operation, Layer *layer, const QString &key,
                            Layer *neighbour, int offset)
{
    // Naming and adding emit signals, and their slots may destroy the layer or this pane.
    const QPointer<LayeredPane> self(this);
    const QPointer<Layer> added(layer);
    if (!accepts(operation, layer, key) || !added)
        return;

    const bool inserted =
        neighbour ? insertBeside(operation, layer, neighbour, offset) : add(layer, 0U, 0U, -1);
    if (inserted && self && added)
        record(layer, key);
}

bool LayeredPane::accepts(const char *operation, Layer *layer, const QString &key) const
{
    if (!layer || key.isEmpty()) {
        QMessageLogger().warning("LayeredPane::%s(): cannot add null layer or add with empty key",
                                 operation);
        return false;
    }

    // Before the test below, so a refused layer carries the key as well: meant so.
    const QPointer<const LayeredPane> self(this);
    layer->setObjectName(key);
    if (!self)
        return false;
    if (ownLayer(key)) {
        QMessageLogger().warning("LayeredPane::%s(): layer '%s' already exists", operation,
                                 key.toUtf8().constData());
        return false;
    }
    return true;
}

// True also when the layout refuses the layer: beside a neighbour its answer does not count.
bool LayeredPane::insertBeside(const char *operation, Layer *layer, Layer *neighbour, int offset)
{
    Layout *layout = getLayoutManager();
    if (!layout) {
        QMessageLogger().warning("LayeredPane::%s(): no layout manager", operation);
        return false;
    }

    const auto index = layout->childFigures().indexOf(neighbour);
    layout->add(layer, 0U, 0U, index < 0 ? -1 : static_cast<int>(index) + offset);
    return true;
}

void LayeredPane::record(Layer *layer, const QString &key)
{
    dropDestroyedLayers();
    m_nestedPaneKeys.removeAll(key); // a slot may have used the key meanwhile
    m_layers.insert(key, layer);
    if (qobject_cast<LayeredPane *>(layer))
        m_nestedPaneKeys.append(key);
}

void LayeredPane::dropDestroyedLayers()
{
    m_layers.removeIf([](const auto &entry) { return entry.value().isNull(); });
    m_nestedPaneKeys.removeIf([this](const QString &key) { return !m_layers.contains(key); });
}

} // namespace Velmora::Figura
