#pragma once

#include "mortalfigure.h"
#include "mortalparts.h"

#include <QMap>
#include <QPointer>
#include <QStringList>

namespace Velmora::Figura::Test {

/// A viewer that shows two layers of figures and connections, one part of each kind, all of which
/// may be destroyed by name at any time. What is left goes at the end.
class MortalWorld
{
public:
    /// \a made hears of each part before it is connected to others: of some only afterwards, when
    /// another part has made them.
    using Made = std::function<void(const QString &, QObject *)>;

    explicit MortalWorld(const Made &made = {});
    ~MortalWorld();
    Q_DISABLE_COPY_MOVE(MortalWorld)

    /// Every kind of change and question, with whatever is left. Paints without paint events,
    /// inside of which not even Qt lets a widget go.
    void live();

    QStringList partNames() const { return m_parts.keys(); }
    QObject *part(const QString &name) const { return m_parts.value(name); }
    void destroy(const QString &name) { delete part(name); }

    /// What does not fit together, in words; empty when all is well.
    QStringList contradictions() const;
    /// The same of the picture: what is on the screen, against everything painted anew.
    QString pictureError();

    Fate fate;
    bool printsPages = false; ///< Which takes long.

private:
    template<typename T>
    T *keep(const char *name, T *part);
    template<typename T>
    T *get(const char *name) const
    {
        return dynamic_cast<T *>(part(QLatin1String(name)));
    }
    Figure *figure(const char *name) const { return get<Figure>(name); }

    void makeView();
    void makeGroup();
    void makeBoxes();
    void makeOwners();
    void makeWire();
    void makeCurve();
    void makeListeners();

    void moveFigures();
    void update();
    void paint();
    void search();
    void zoom();
    void regroup();
    void constrain();
    void reroute();
    void reattach();
    void redecorate();
    void rearrangeLayers();
    void replaceContent();
    void print();

    void checkChildren(QStringList *found, Figure *parent) const;
    void checkLines(QStringList *found) const;
    void checkQueue(QStringList *found) const;

    Made m_made;
    FatefulLayoutListener m_layoutListener{&fate};
    QMap<QString, QPointer<QObject>> m_parts;
};

} // namespace Velmora::Figura::Test
