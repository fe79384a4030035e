#pragma once

#include <figura/export.h>
#include <figura/figure/IAncestorListener.h>
#include <figura/figure/InterfacePointer.h>
#include <figura/shape/Shape.h>

#include <QPointer>

namespace Velmora::Figura {

class ILocator;

/// The base of shapes that a locator places relative to an owner figure, and that follow its moves.
///
/// Neither owner nor locator is owned; one that is destroyed counts as none.
class FIGURA_EXPORT Decoration : public Shape, public IAncestorListener
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IAncestorListener)
    Q_MOC_INCLUDE("figura/layout/ILocator.h")
    Q_PROPERTY(Figure *owner READ getOwner WRITE setOwner)
    Q_PROPERTY(ILocator *locator READ getLocator WRITE setLocator)
    Q_PROPERTY(bool managedExternally READ isManagedExternally WRITE setManagedExternally)
    Q_PROPERTY(bool showable READ isShowable)

public:
    /// Either may be null and set later.
    explicit Decoration(Figure *owner, ILocator *locator, QObject *parent = nullptr);
    explicit Decoration(QObject *parent = nullptr); ///< With neither owner nor locator.
    ~Decoration() override;

    Figure *getOwner() const;                ///< Null when there is none.
    void setOwner(Figure *owner);            ///< Only stores; watched from the next addNotify() on.
    ILocator *getLocator() const;            ///< Null when there is none.
    void setLocator(ILocator *locator);      ///< Only stores.
    bool isManagedExternally() const;        ///< False at first.
    void setManagedExternally(bool managed); ///< When set, validation leaves the bounds alone.
    bool isShowable() const;                 ///< Always true.
    QVariant getConstraint() const; ///< The locator as a QObject *, for use as a layout constraint.

    void addNotify() override;    ///< Begins to watch the owner; warns when there is none.
    void removeNotify() override; ///< Stops watching the owner; warns when there is none.
    /// Lets the locator place this decoration. On purpose it neither lays out nor becomes valid.
    void validate() override;

public Q_SLOTS:
    // These hide the signals of the same names; the signals are reached through Figure.
    void ancestorAdded(Figure *ancestor) override;   ///< Does nothing.
    void ancestorMoved(Figure *ancestor) override;   ///< Asks for validation and repaint.
    void ancestorRemoved(Figure *ancestor) override; ///< Does nothing.

private:
    QPointer<Figure> m_owner;
    InterfacePointer<ILocator> m_locator;
    bool m_managedExternally = false;
};

} // namespace Velmora::Figura
