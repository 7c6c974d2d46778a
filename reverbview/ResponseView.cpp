#include "reverbview/ResponseView.h"

#include "reverbview/ResponseRender.h"

#include <GL/gl.h>

ResponseView::ResponseView(const ReverbResponseParams* params, QWidget* parent)
    : QOpenGLWidget(parent), m_params(params)
{
    setFormat(Format());
    // The clear colour has an alpha of 0.5 and smooth lines write coverage into alpha: a frame kept
    // without alpha stays opaque on screen, black where nothing is drawn.
    setTextureFormat(GL_RGB8);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

ResponseView::~ResponseView()
{
    // The scene goes while the context is current, before Qt destroys it.
    if (m_sceneMade) {
        makeCurrent();
        ReleaseResponseScene();
        doneCurrent();
    }
}

QSurfaceFormat ResponseView::Format()
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setDepthBufferSize(16);
    return format;
}

void ResponseView::initializeGL()
{
    m_sceneMade = InitResponseScene(ResponseRows) == 1;
}

void ResponseView::paintGL()
{
    // The viewport is in device pixels; Qt presents the frame.
    const qreal ratio = devicePixelRatioF();
    RenderResponse(0, 0, static_cast<int>(width() * ratio), static_cast<int>(height() * ratio), *m_params);
}
