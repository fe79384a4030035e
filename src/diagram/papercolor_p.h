#pragma once

#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

#include <QColor>
#include <QPalette>
#include <QVariant>

namespace Velmora::Figura {

/// What figures are painted on in \a view.
inline QColor paperColor(const DiagramView *view)
{
    const FreeformWidget *canvas = view->getCanvas();
    const auto chosen = canvas ? canvas->property("backgroundColor").value<QColor>() : QColor();
    return chosen.isValid() ? chosen : view->palette().color(QPalette::Base);
}

} // namespace Velmora::Figura
