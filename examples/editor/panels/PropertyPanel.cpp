#include "panels/PropertyPanel.h"

#include "edit/Workbench.h"
#include "panels/ContentForm.h"
#include "panels/StyleForm.h"

#include <QVBoxLayout>

namespace Editor {

PropertyPanel::PropertyPanel(Workbench &bench, QWidget *parent)
    : QScrollArea(parent)
    , m_content(new ContentForm(bench))
    , m_style(new StyleForm(bench))
{
    auto *forms = new QWidget(this);
    auto *column = new QVBoxLayout(forms);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_content);
    column->addWidget(m_style);
    column->addStretch();
    setWidget(forms);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(&bench, &Workbench::documentChanged, this, &PropertyPanel::refresh);
    connect(&bench.selection(), &Selection::changed, this, &PropertyPanel::startSeries);
    refresh();
}

void PropertyPanel::refresh()
{
    m_content->refresh();
    m_style->refresh();
}

void PropertyPanel::startSeries()
{
    m_content->startSeries();
    m_style->startSeries();
    refresh();
}

} // namespace Editor
