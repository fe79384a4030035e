#pragma once

#include "scene.h"

#include <QString>

#include <memory>

class QWidget;

/// One way to show a scene in a window of the size Scene::view.
///
/// Indices are those of the scene. What changes what is shown takes effect with the next paint.
class Side
{
public:
    explicit Side(const Scene &scene)
        : m_scene(scene)
    {
    }
    virtual ~Side() = default;
    Side(const Side &) = delete;
    Side &operator=(const Side &) = delete;

    virtual void build(bool withEdges) = 0; ///< Makes everything and shows the window.
    virtual QWidget *canvas() const = 0;    ///< The widget whose paint events count.
    virtual void lookAt(const QPoint &corner) = 0;

    virtual void recolor(int index, const QColor &color) = 0;
    virtual void moveBy(int index, const QPoint &step) = 0; ///< Its lines follow.
    virtual int topmostAt(const QPoint &point) const = 0;   ///< -1 for a line or nothing.
    virtual int countIn(const QRect &rect) const = 0;       ///< Rectangles and lines alike.
    virtual void repaintAll() = 0;
    virtual void setScale(double scale) = 0;
    virtual void fit() = 0;
    virtual void scrollBy(int dy) = 0;
    virtual void removeHub(int hub) = 0; ///< With its lines; both are destroyed.

protected:
    const Scene &scene() const { return m_scene; }

private:
    const Scene &m_scene;
};

using SideMaker = std::unique_ptr<Side> (*)(const Scene &);

std::unique_ptr<Side> makeFiguraSide(const Scene &scene);
std::unique_ptr<Side> makeFlatSide(const Scene &scene);  ///< QGraphicsView, items only.
std::unique_ptr<Side> makeTiledSide(const Scene &scene); ///< The same items under empty tiles.
std::unique_ptr<Side>
makeObjectSide(const Scene &scene);                      ///< QGraphicsObject, lines follow signals.
std::unique_ptr<Side> makeFloorSide(const Scene &scene); ///< A bare painter over plain arrays.
