#pragma once

#include <figura/figure/Figure.h>

namespace Velmora::Figura::Test {

/// A figure to be placed, of a fixed preferred size.
class Label : public Figure
{
public:
    explicit Label(const QSize &size) { setPreferredSize(size); }
};

} // namespace Velmora::Figura::Test
