#pragma once

#include "positionview/DScreenPresenter.h"

#include <QImage>
#include <QObject>
#include <QPointer>

class QWidget;

// Puts a DScreen's picture on a widget: the back buffer is a QImage of the control's size in the
// screen's format (32 bits a pixel on a true-colour X screen of depth 24, 5-6-5 at 16), a frame is
// shown by painting that image on the control at once, and failures go to the program's message box.
// The control keeps its own kind; the presenter paints over it through an event filter.
class WidgetPresenter : public QObject, public DScreenPresenter {
public:
    // view is borrowed; a presenter whose view is gone presents nothing.
    explicit WidgetPresenter(QWidget* view);
    ~WidgetPresenter() override;

    std::int32_t DisplayBitsPerPixel() const override;
    void ControlSize(std::int32_t& width, std::int32_t& height) const override;
    bool CreateBackBuffer(std::int32_t width, std::int32_t height, DScreenBuffer& buffer) override;
    void ReleaseBackBuffer() override;
    bool Present(const DScreenBuffer& buffer) override;
    void ShowMessage(const char* text) override;

    // Takes the place of the screen's depth, for a display that the machine at hand does not have.
    void SetDisplayBitsPerPixel(std::int32_t bits) { m_forcedBits = bits; }
    // The picture now on the control.
    const QImage& Frame() const { return m_image; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_view;
    QImage m_image;
    bool m_shown = false; // a frame was presented since the buffer was made
    std::int32_t m_forcedBits = 0;
};
