#pragma once

#include <QOpenGLWidget>

struct ReverbResponseParams;

// The surface of the response graph: a double-buffered OpenGL view with a 16-bit depth buffer in the
// compatibility profile, which draws the record it is pointed at. It takes no mouse input: presses
// and moves on the graph reach the window around it.
class ResponseView : public QOpenGLWidget {
public:
    // params is borrowed and must outlive the view.
    ResponseView(const ReverbResponseParams* params, QWidget* parent);
    ~ResponseView() override;

    static QSurfaceFormat Format();

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    const ReverbResponseParams* m_params;
    bool m_sceneMade = false;
};
