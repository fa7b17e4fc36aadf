#pragma once

#include <QImage>
#include <QTest>
#include <QWidget>
#include <QtMath>

#include <cmath>

/// A widget painted into an image at a device pixel ratio, on a ground that no instrument uses.
class Picture
{
public:
    Picture(QWidget &widget, int ratio)
        : m_image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied), m_ratio(ratio)
    {
        m_image.setDevicePixelRatio(ratio);
        m_image.fill(Ground());
        widget.render(&m_image, QPoint(), QRegion(), QWidget::DrawChildren);
    }

    static QColor Ground() { return {1, 128, 2}; }

    /// Colour at a place of the widget.
    QColor At(double x, double y) const
    {
        return m_image.pixelColor(int(x * m_ratio), int(y * m_ratio));
    }

    /// Colour in a dial of 400 by 400, at an angle clockwise from 12 o'clock.
    QColor OnDial(double degrees, double radius) const
    {
        const double radians = qDegreesToRadians(degrees);
        return At(200.0 + radius * std::sin(radians), 200.0 - radius * std::cos(radians));
    }

    /// How many pixels of a rectangle have exactly this colour.
    int Count(const QRect &rect, const QColor &color) const
    {
        int count = 0;
        for (int y = rect.top() * m_ratio; y < (rect.bottom() + 1) * m_ratio; ++y) {
            for (int x = rect.left() * m_ratio; x < (rect.right() + 1) * m_ratio; ++x)
                count += m_image.pixelColor(x, y) == color ? 1 : 0;
        }
        return count;
    }

    bool IsEmpty() const
    {
        const QSize size = m_image.size() / m_ratio;
        return Count(QRect(QPoint(), size), Ground()) == m_image.width() * m_image.height();
    }

private:
    QImage m_image;
    int m_ratio;
};
