#pragma once

#include <figura/figure/Figure.h>

#include <QPointer>

#include <initializer_list>
#include <utility>
#include <vector>

namespace Velmora::Figura {

/// While it lives, layers have paper as far as an area.
///
/// What sticks out of a connection is painted only where its layers have some, and what they have
/// follows a view, if there is one: it may be elsewhere.
class Paper
{
public:
    /// \a sheets are such as move nothing when they get other bounds.
    Paper(std::initializer_list<Figure *> sheets, const QRect &area)
    {
        for (Figure *sheet : sheets) {
            m_former.emplace_back(sheet, sheet->getBounds());
            sheet->setBounds(sheet->getBounds() | area);
        }
    }

    ~Paper()
    {
        for (const auto &[sheet, bounds] : m_former) {
            if (sheet)
                sheet->setBounds(bounds);
        }
    }

    Q_DISABLE_COPY_MOVE(Paper)

private:
    std::vector<std::pair<QPointer<Figure>, QRect>> m_former;
};

} // namespace Velmora::Figura
