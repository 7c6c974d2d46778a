#include "positionview/WidgetPresenter.h"

#include "controls/AfxMessageBox.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

WidgetPresenter::WidgetPresenter(QWidget* view)
    : m_view(view)
{
    if (view)
        view->installEventFilter(this);
}

WidgetPresenter::~WidgetPresenter()
{
    if (m_view)
        m_view->removeEventFilter(this);
}

std::int32_t WidgetPresenter::DisplayBitsPerPixel() const
{
    if (m_forcedBits)
        return m_forcedBits;
    const QScreen* screen = m_view && m_view->screen() ? m_view->screen() : QGuiApplication::primaryScreen();
    const int depth = screen ? screen->depth() : 32;
    // Depth counts the colour bits; memory holds 24-bit colour in 32-bit pixels.
    return depth == 24 ? 32 : depth;
}

void WidgetPresenter::ControlSize(std::int32_t& width, std::int32_t& height) const
{
    width = m_view ? m_view->width() : 0;
    height = m_view ? m_view->height() : 0;
}

bool WidgetPresenter::CreateBackBuffer(std::int32_t width, std::int32_t height, DScreenBuffer& buffer)
{
    const std::int32_t bits = DisplayBitsPerPixel();
    if (width <= 0 || height <= 0 || (bits != 16 && bits != 32))
        return false;
    m_image = QImage(width, height, bits == 16 ? QImage::Format_RGB16 : QImage::Format_RGB32);
    if (m_image.isNull())
        return false;
    m_shown = false;
    buffer.Memory = m_image.bits();
    buffer.Width = width;
    buffer.Height = height;
    buffer.Pitch = static_cast<std::int32_t>(m_image.bytesPerLine());
    buffer.BitsPerPixel = bits;
    buffer.GreenMask = 0x7E0;
    return true;
}

void WidgetPresenter::ReleaseBackBuffer()
{
    m_image = QImage();
    m_shown = false;
}

bool WidgetPresenter::Present(const DScreenBuffer& buffer)
{
    if (!m_view || buffer.Memory != m_image.constBits())
        return false;
    m_shown = true;
    m_view->repaint();
    return true;
}

void WidgetPresenter::ShowMessage(const char* text)
{
    AfxMessageBox(QString::fromLatin1(text));
}

bool WidgetPresenter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_view || event->type() != QEvent::Paint || !m_shown)
        return false;
    QPainter painter(m_view);
    painter.drawImage(0, 0, m_image);
    return true;
}
