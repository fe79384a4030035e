#pragma once

#include <QScrollArea>

namespace Editor {

class ContentForm;
class StyleForm;
class Workbench;

/// What can be changed about the selection.
class PropertyPanel : public QScrollArea
{
    Q_OBJECT

public:
    explicit PropertyPanel(Workbench &bench, QWidget *parent = nullptr);

private:
    void refresh();
    void startSeries();

    ContentForm *m_content;
    StyleForm *m_style;
};

} // namespace Editor
