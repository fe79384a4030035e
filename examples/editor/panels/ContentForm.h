#pragma once

#include "commands/ChangeArrows.h"

#include <QWidget>

class QComboBox;
class QFormLayout;
class QPlainTextEdit;

namespace Editor {

class Workbench;

/// Text, and what only edges or only lanes have: routing, arrow heads, flow.
class ContentForm : public QWidget
{
    Q_OBJECT

public:
    explicit ContentForm(Workbench &bench, QWidget *parent = nullptr);

    void refresh();
    void startSeries(); ///< What is typed from now on is a step of its own.

private:
    void createText();
    void createEdgeRows();
    void createFlow();
    void showText();
    void showEdge();
    void showFlow();
    QList<int> lanes() const;

    template<class Enum>
    QComboBox *createChoice(const char *name);

    Workbench &m_bench;
    QFormLayout *m_form;
    QPlainTextEdit *m_text;
    QComboBox *m_routing;
    QComboBox *m_sourceArrow;
    QComboBox *m_targetArrow;
    QComboBox *m_flow;
    int m_series;
    bool m_isRefreshing = false;
};

} // namespace Editor
