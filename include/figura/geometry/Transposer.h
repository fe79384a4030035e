#pragma once

#include <figura/export.h>

#include <QObject>

namespace Velmora::Figura {

/// A switch that says whether horizontal and vertical are exchanged; whoever transposes reads it.
class FIGURA_EXPORT Transposer : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)

public:
    explicit Transposer(QObject *parent = nullptr); ///< Disabled at first.
    ~Transposer() override;

    void enable();                 ///< From now on the axes are exchanged.
    void disable();                ///< From now on they are not.
    void setEnabled(bool enabled); ///< The same as one of the two.
    bool isEnabled() const;        ///< False at first.

private:
    bool m_enabled = false;
};

} // namespace Velmora::Figura
