#pragma once

#include <figura/export.h>
#include <figura/figure/IPropertyChangeListener.h>

#include <QList>
#include <QObject>
#include <QPointer>

#include <list>

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
    explicit AncestorHelper(Figure *figure, QObject *parent = nullptr);
    ~AncestorHelper() override;

protected:
    virtual void addAncestors(Figure *figure);    ///< Hooks \a figure and each ancestor of it.
    virtual void removeAncestors(Figure *figure); ///< Lets go of \a figure and all hooked above it.

    /// Lets go of everything; the helper emits nothing more.
    void cleanup();

Q_SIGNALS:
    void ancestorAdded(Figure *pAncestor);
    void ancestorMoved(Figure *pAncsetor); // spelt as in Figure
    void ancestorRemoved(Figure *pAncestor);

public Q_SLOTS:
    void figureMoved(Figure *pFigure);
    void ancestorDestroyed(QObject *pObj);
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
        QPointer<Figure> figure;
        QPointer<AncestorHub> hub;
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
    QList<Hook> m_chain; // the watched figure first, then what was above it when it was hooked
};

} // namespace Velmora::Figura
