#pragma once

#include <figura/export.h>
#include <figura/view/Layer.h>

#include <QMap>
#include <QPointer>
#include <QStringList>

namespace Velmora::Figura {

/// A layer that stacks named layers; the later child is painted on top.
///
/// Layers are not owned; one that is destroyed frees its key. Refusals are reported on the warning
/// channel. A layer taken out through Figure::remove() keeps its key: use removeLayer().
class FIGURA_EXPORT LayeredPane : public Layer
{
    Q_OBJECT

public:
    explicit LayeredPane(QObject *parent = nullptr); ///< Comes with a StackLayout.
    ~LayeredPane() override;

    /// Adds on top. A null layer, an empty key and a key in use are refused. The key becomes the
    /// layer's object name, even when it is in use.
    virtual void addLayer(Layer *layer, const QString &key);
    /// Adds right above the layer \a above; on top when that is null or not in this pane.
    virtual void addLayerAbove(Layer *layer, const QString &key, Layer *above);
    /// Adds right below the layer \a beneath; on top when that is null or not in this pane.
    virtual void addLayerBeneath(Layer *layer, const QString &key, Layer *beneath);
    /// The layer of that key, looked for in nested panes too; null when there is none.
    virtual Layer *getLayer(const QString &key);
    /// Takes the layer out and returns it; null when the key is not one of this pane itself.
    virtual Layer *removeLayer(const QString &key);

private:
    Layer *ownLayer(const QString &key) const;
    void addBeside(const char *operation, Layer *layer, const QString &key, Layer *neighbour,
                   int offset);
    bool accepts(const char *operation, Layer *layer, const QString &key) const;
    bool insertBeside(const char *operation, Layer *layer, Layer *neighbour, int offset);
    void record(Layer *layer, const QString &key);
    void dropDestroyedLayers();

    QMap<QString, QPointer<Layer>> m_layers;
    QStringList m_nestedPaneKeys; // in order of addition
};

} // namespace Velmora::Figura
