#pragma once

#include <figura/export.h>
#include <figura/figure/IPropertyChangeListener.h>

#include <QObject>
#include <QPointer>

#include <list>
#include <vector>

namespace Velmora::Figura {

class AncestorHub;
class Figure;

/// Watches a figure and all of its ancestors, and passes on what happens to them as signals, which
/// the watched figure emits again for its ancestor listeners.
///
/// Figures make and own their helper themselves.
class FIGURA_EXPORT AncestorHelper : public QObject, public IPropertyChangeListener
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IPropertyChangeListener)
    Q_MOC_INCLUDE("figura/figure/Figure.h")

public:
    /// Hooks \a figure and all that is above it now.
    explicit AncestorHelper(Figure *figure, QObject *parent = nullptr);
    ~AncestorHelper() override;

protected:
    virtual void addAncestors(Figure *figure);    ///< Hooks \a figure and each ancestor of it.
    virtual void removeAncestors(Figure *figure); ///< Lets go of \a figure and all hooked above it.

    /// Lets go of everything; the helper emits nothing more.
    void cleanup();

Q_SIGNALS:
    void ancestorAdded(Figure *pAncestor); ///< \a pAncestor is the new parent of a watched figure.
    /// \a pAncsetor, the figure or one of its ancestors, has moved.
    void ancestorMoved(Figure *pAncsetor);   // spelt as in Figure
    void ancestorRemoved(Figure *pAncestor); ///< \a pAncestor was the parent of a watched figure.

public Q_SLOTS:
    void figureMoved(Figure *pFigure);     ///< Passes it on as ancestorMoved(); null is ignored.
    void ancestorDestroyed(QObject *pObj); ///< Lets go of everything: the chain is broken.
    /// Follows Figure::PROPERTY_PARENT to the new ancestors; other properties are ignored.
    void propertyChanged(const QString &propertyName, const QVariant &oldValue,
                         const QVariant &newValue) override;

private:
    friend class Figure;

    /// How what happens reaches the watched figure: by connections that anybody may use, or, for
    /// the helper that nobody but the figure knows, by a call.
    enum class Relay { BySignal, ByCall };
    AncestorHelper(Figure *figure, Relay relay);

    struct Hook
    {
        Figure *figure;   // goes only after it has been let go of
        AncestorHub *hub; // null: hooked directly; stays as long as somebody is in it
        std::list<AncestorHelper *>::iterator place; // in the hub
    };

    void tell(void (AncestorHelper::*own)(Figure *), void (Figure::*relayed)(Figure *),
              Figure *ancestor);
    void hook(Figure *figure);
    void hookDirectly(Figure *figure);
    void unhook(const Hook &hook);
    int firstHook(Figure *figure) const;

    const Relay m_relay = Relay::BySignal;
    QPointer<Figure> m_figure;
    QMetaObject::Connection m_direct[3]; // to the watched figure itself
    std::vector<Hook>
        m_chain; // the watched figure first, then what was above it when it was hooked
};

} // namespace Velmora::Figura
