#pragma once

#include "engine/LoopbackRenderer.h"

#include <QDialog>
#include <QString>

class QComboBox;
class QDoubleSpinBox;

// "Render to WAV...": how long and in which samples, asked after the file's name. The length is
// the longest source unless set; the tail lasts until the output is silent unless set.
class CRenderDialog : public QDialog {
public:
    explicit CRenderDialog(QWidget* parent = nullptr);

    RenderOptions Options() const;

    QDoubleSpinBox* Length = nullptr;
    QDoubleSpinBox* Tail = nullptr;
    QComboBox* Sample = nullptr;
};

// Renders the live scene into path on a thread of its own, with a progress dialog whose Cancel stops
// it; says in a message box what became of it. The scene is read here, on the caller's thread.
void RenderSceneWithProgress(QWidget* parent, const SceneSnapshot& scene, RenderOptions options, const QString& path);
