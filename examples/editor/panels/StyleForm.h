#pragma once

#include "commands/ChangeStyle.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QSpinBox;

namespace Editor {

class ColorButton;
class Workbench;

/// Colours, line and font of what is selected; shows those of the first of them.
class StyleForm : public QWidget
{
    Q_OBJECT

public:
    explicit StyleForm(Workbench &bench, QWidget *parent = nullptr);

    void refresh();
    void startSeries(); ///< What is changed from now on is a step of its own.

private:
    void createColors();
    void createLine();
    void createFont();
    void change(const ChangeStyle::Change &change);
    void show(const Style &style);

    Workbench &m_bench;
    ColorButton *m_fill;
    ColorButton *m_line;
    ColorButton *m_text;
    QSpinBox *m_lineWidth;
    QComboBox *m_lineStyle;
    QFontComboBox *m_family;
    QSpinBox *m_size;
    QCheckBox *m_bold;
    QCheckBox *m_italic;
    int m_series;
    bool m_isRefreshing = false; // what changes then is not the user's doing
};

} // namespace Editor
