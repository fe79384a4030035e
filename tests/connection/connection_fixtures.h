#pragma once

#include <figura/connection/AbstractRouter.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>
#include <figura/layout/XYLayout.h>

#include <recordingupdatemanager.h>
#include <rootfigure.h>

#include <QStringList>
#include <QTest>

#include <functional>
#include <memory>

namespace Velmora::Figura::Test {

/// A router that writes down what it is asked to do, and answers with the points it was given.
class LoggingRouter : public AbstractRouter
{
public:
    explicit LoggingRouter(QStringList *target = nullptr)
        : log(target ? target : &own)
    {
    }

    QStringList *log;
    QStringList own; ///< Where entries go without a list from outside.
    QList<QPointF> points{{3, 4}, {50, 60}};
    QVariant constraint;

    QVariant getConstraint(IConnection *) override { return constraint; }
    void invalidate(IConnection *) override { log->append(QStringLiteral("router invalidate")); }
    void remove(IConnection *) override { log->append(QStringLiteral("router remove")); }
    void setConstraint(IConnection *, const QVariant &value) override
    {
        log->append(QStringLiteral("router constraint"));
        constraint = value;
    }

    QList<QPoint> doRoute(IConnection *) override
    {
        log->append(QStringLiteral("router route"));
        QList<QPoint> result;
        for (const QPointF &point : points)
            result.append(point.toPoint());
        return result;
    }

    QList<QPointF> doRouteF(IConnection *) override
    {
        log->append(QStringLiteral("router routeF"));
        return points;
    }
};

/// A fixed anchor that writes down who listens.
class LoggingAnchor : public XYAnchor
{
public:
    explicit LoggingAnchor(QStringList *log, const QString &name = QStringLiteral("anchor"))
        : m_log(log)
        , m_name(name)
    {
    }

    void addAnchorListener(IAnchorListener *listener) override
    {
        m_log->append(m_name + QStringLiteral(" add"));
        XYAnchor::addAnchorListener(listener);
    }

    void removeAnchorListener(IAnchorListener *listener) override
    {
        m_log->append(m_name + QStringLiteral(" remove"));
        XYAnchor::removeAnchorListener(listener);
    }

private:
    QStringList *m_log;
    QString m_name;
};

/// A connection of either class, so that a rule which both follow is tested once.
class AnyConnection
{
public:
    virtual ~AnyConnection() = default;

    QStringList log; ///< What was called, in order.

    virtual Figure &figure() = 0;
    virtual IConnection &connection() = 0;
    virtual IAnchorListener &listener() = 0;
    virtual void setDecoration(bool atSource, IRotatableDecoration *decoration) = 0;
    virtual IRotatableDecoration *decoration(bool atSource) = 0;
};

template<typename Base>
class ConnectionOf : public Base, public AnyConnection
{
public:
    using Base::repaint;

    Figure &figure() override { return *this; }
    IConnection &connection() override { return *this; }
    IAnchorListener &listener() override { return *this; }

    void setDecoration(bool atSource, IRotatableDecoration *decoration) override
    {
        if (atSource)
            this->setSourceDecoration(decoration);
        else
            this->setTargetDecoration(decoration);
    }

    IRotatableDecoration *decoration(bool atSource) override
    {
        return atSource ? this->getSourceDecoration() : this->getTargetDecoration();
    }

    void invalidate() override
    {
        log.append(QStringLiteral("invalidate"));
        Base::invalidate();
    }

    void revalidate() override
    {
        log.append(QStringLiteral("revalidate"));
        Base::revalidate();
    }

    void repaint(const QRect &rect) override
    {
        log.append(QStringLiteral("repaint"));
        Base::repaint(rect);
    }
};

using AnyConnectionPointer = std::unique_ptr<AnyConnection>;

/// \a className is PolylineConnection or PolylineFConnection.
inline AnyConnectionPointer makeConnection(const QString &className)
{
    if (className == QStringLiteral("PolylineFConnection"))
        return std::make_unique<ConnectionOf<PolylineFConnection>>();
    return std::make_unique<ConnectionOf<PolylineConnection>>();
}

/// One row for each connection class.
inline void addConnectionClassRows()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("PolylineConnection") << QStringLiteral("PolylineConnection");
    QTest::newRow("PolylineFConnection") << QStringLiteral("PolylineFConnection");
}

/// One row for each end of each connection class.
inline void addConnectionEndRows()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<bool>("atSource");
    for (const char *name : {"PolylineConnection", "PolylineFConnection"}) {
        QTest::addRow("source of a %s", name) << QString::fromLatin1(name) << true;
        QTest::addRow("target of a %s", name) << QString::fromLatin1(name) << false;
    }
}

inline void setAnchor(IConnection &connection, bool atSource, IConnectionAnchor *anchor)
{
    if (atSource)
        connection.setSourceAnchor(anchor);
    else
        connection.setTargetAnchor(anchor);
}

/// A displayed root whose children share its coordinates.
class DisplayedTree
{
public:
    RecordingUpdateManager manager;
    RootFigure root{&manager};

    DisplayedTree() { root.setLayoutManager(new XYLayout(&root)); }
};

} // namespace Velmora::Figura::Test
