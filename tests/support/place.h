#pragma once

#include <figura/layout/XYLayout.h>

namespace Velmora::Figura::Test {

/// A figure whose children's coordinates begin at the given corner. It leaves them where they are.
class Place : public Figure
{
public:
    explicit Place(const QPoint &corner = QPoint())
    {
        setLayoutManager(new XYLayout(this));
        setBounds(QRect(corner, QSize(1000, 1000)));
    }
};

} // namespace Velmora::Figura::Test
