#pragma once

#include <figura/shape/RoundedRectangle.h>

namespace Editor {

class TextBlock;
struct Theme;

/// A showcase: an exhibit of the library with a caption below.
class SpecimenFigure : public Velmora::Figura::RoundedRectangle
{
    Q_OBJECT

public:
    explicit SpecimenFigure(const QString &specimen, QObject *parent = nullptr);

    TextBlock *caption() const { return m_caption; }
    void setColors(const Theme &theme); ///< Of the exhibit.

private:
    Figure *m_stage;
    TextBlock *m_caption;
};

} // namespace Editor
