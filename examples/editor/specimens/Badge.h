#pragma once

#include <figura/decoration/Decoration.h>

namespace Editor::Specimens {

/// A spot that a locator keeps at another figure.
class Badge : public Velmora::Figura::Decoration
{
    Q_OBJECT

public:
    Badge(Velmora::Figura::Figure *owner, Velmora::Figura::ILocator *locator,
          QObject *parent = nullptr);

protected:
    void regeneratePath(const QRectF &rect) override;
};

} // namespace Editor::Specimens
