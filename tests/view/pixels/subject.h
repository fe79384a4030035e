#pragma once

#include "pixelstage.h"

#include <functional>

namespace Velmora::Figura::Test {

/// A figure of some kind on the stage, and what may happen to it.
struct Subject
{
    struct Step
    {
        QByteArray name;
        std::function<void()> take;
    };

    PixelStage &stage;
    int lineWidth;
    Figure *figure = nullptr;
    QList<Step> steps;

    void then(const QByteArray &name, std::function<void()> take)
    {
        steps.append({name, std::move(take)});
    }
};

struct Kind
{
    const char *name;
    void (*build)(Subject &subject);
};

QList<Kind> shapeKinds();
QList<Kind> contentKinds();
QList<Kind> polylineKinds();
QList<Kind> connectionKinds();
QList<Kind> containerKinds();

/// What every figure does that is placed by its bounds.
void addBoundsSteps(Subject &subject);
/// What every figure does.
void addFigureSteps(Subject &subject);
/// Another figure passes along the edges: only small parts of the subject are damaged.
void addProbeSteps(Subject &subject);

} // namespace Velmora::Figura::Test
