#include "refhost/window/packageicon.h"

#include "refhost/core/imagecheck.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

namespace quelhost {

namespace {

constexpr QSize kLargest(256, 256);

class PackageIconEngine final : public QIconEngine
{
public:
    PackageIconEngine(ImageKind kind, QByteArray bytes)
        : m_kind(kind)
        , m_bytes(std::move(bytes))
    {}

    // The painter's device has its own pixels for each unit.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        picture.setDevicePixelRatio(1);
        painter->drawPixmap(rect, picture);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QSize drawn = size.boundedTo(kLargest);
        if (drawn.isEmpty())
            return {};
        const QPixmap normal = drawNormal(drawn);
        // In a row that is selected it stays as it is: dyed, it would hardly be seen.
        if (mode != QIcon::Disabled)
            return normal;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, normal, &option);
    }

    QIconEngine* clone() const override { return new PackageIconEngine(*this); }

private:
    [[nodiscard]] QPixmap drawNormal(const QSize& size) const
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        if (m_kind == ImageKind::Svg)
            drawSvg(painter, size);
        else
            drawPng(painter, size);
        return picture;
    }

    void drawSvg(QPainter& painter, const QSize& size) const
    {
        QSvgRenderer renderer(m_bytes);
        const QSizeF own = QSizeF(renderer.defaultSize());
        if (!own.isEmpty())
            renderer.render(&painter, centred(own.scaled(size, Qt::KeepAspectRatio), size));
    }

    void drawPng(QPainter& painter, const QSize& size) const
    {
        const QImage image = QImage::fromData(m_bytes, "png");
        if (image.isNull())
            return;
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(centred(QSizeF(image.size()).scaled(size, Qt::KeepAspectRatio), size),
                          image);
    }

    static QRectF centred(const QSizeF& inner, const QSize& outer)
    {
        return {QPointF((outer.width() - inner.width()) / 2, (outer.height() - inner.height()) / 2),
                inner};
    }

    ImageKind m_kind;
    QByteArray m_bytes;
};

} // namespace

QIcon packageIcon(const QString& name, const QByteArray& bytes)
{
    const std::optional<ImageKind> kind = imageKind(name);
    return kind ? QIcon(new PackageIconEngine(*kind, bytes)) : QIcon();
}

QIcon commandIcon(const MenuGroup& group, const MenuCommand& command)
{
    const auto image = group.images.find(command.icon);
    return image == group.images.end() ? QIcon() : packageIcon(image->first, image->second);
}

} // namespace quelhost
