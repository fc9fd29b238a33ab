// SPDX-License-Identifier: MIT
#include "CardShadow.h"

#include "Bands.h"
#include "CardPatch.h"
#include "CardShape.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace sablequill {
namespace {

constexpr double opacity = 0.45;
constexpr double blurRadius = 28; ///< points
constexpr double sigma = blurRadius / 2;
constexpr int offset = 12; ///< points, downwards
/// Farther than this the shadow is under half of the least step of an eight-bit channel.
constexpr int visibleReach = 38;
/// The blur is so wide that one sample every four points holds all of it.
constexpr int sampleDistance = 4;

/// Samples of an image, row after row, each 0 to 1.
struct Samples {
    int width = 0;
    int height = 0;
    std::vector<float> values;
};

/// How much of each sample the card covers.
Samples coverage(const QRectF& card, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / sampleDistance, 1.0 / sampleDistance);
    const QPainterPath shape = cardShape(card, CardPatch::cornerRadius);
    drawInBands(painter, card, [&] { painter.fillPath(shape, Qt::black); });
    painter.end();

    Samples samples{size.width(), size.height(), {}};
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            samples.values.push_back(static_cast<float>(qAlpha(image.pixel(x, y))) / 255);
    return samples;
}

/// Weights of the samples at a distance of 0, 1, 2, ... in both directions; together 1.
std::vector<float> bell()
{
    const double width = sigma / sampleDistance;
    std::vector<float> weights;
    double sum = 0;
    for (int distance = 0; distance <= std::ceil(3 * width); ++distance) {
        const double weight = std::exp(-distance * distance / (2 * width * width));
        sum += distance ? 2 * weight : weight;
        weights.push_back(static_cast<float>(weight));
    }
    for (float& weight : weights)
        weight /= static_cast<float>(sum);
    return weights;
}

/// Blurs along the rows and turns the image by swapping its axes: done twice, it is blurred both
/// ways and upright again.
Samples blurredAndTurned(const Samples& samples, const std::vector<float>& weights)
{
    Samples turned{samples.height, samples.width, std::vector<float>(samples.values.size())};
    const int reach = static_cast<int>(weights.size()) - 1;
    for (int y = 0; y < samples.height; ++y)
        for (int x = 0; x < samples.width; ++x) {
            float sum = 0;
            for (int near = std::max(0, x - reach); near <= std::min(samples.width - 1, x + reach);
                 ++near)
                sum += samples.values[static_cast<std::size_t>(y * samples.width + near)]
                    * weights[static_cast<std::size_t>(std::abs(near - x))];
            turned.values[static_cast<std::size_t>(x * turned.width + y)] = sum;
        }
    return turned;
}

QImage shadowImage(const Samples& samples)
{
    QImage image(samples.width, samples.height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < samples.height; ++y)
        for (int x = 0; x < samples.width; ++x) {
            const float value = samples.values[static_cast<std::size_t>(y * samples.width + x)];
            image.setPixel(
                x, y, qRgba(0, 0, 0, static_cast<int>(std::lround(value * opacity * 255))));
        }
    return image;
}

int samplesFor(double points)
{
    return static_cast<int>(std::ceil(points / sampleDistance));
}

} // namespace

QMargins cardShadowReach()
{
    return {visibleReach, visibleReach - offset, visibleReach, visibleReach + offset};
}

void paintCardShadow(QPainter& painter, const QRectF& card, double ratio)
{
    // The samples lie around a card in points, whose surroundings are as wide as the whole blur.
    constexpr int surroundings = 48;
    const QSizeF cardSize = card.size() / ratio;
    const QSize size(samplesFor(cardSize.width() + 2 * surroundings),
        samplesFor(cardSize.height() + 2 * surroundings));
    const auto weights = bell();
    const QRectF sampled(QPointF(surroundings, surroundings), cardSize);
    const Samples blurred =
        blurredAndTurned(blurredAndTurned(coverage(sampled, size), weights), weights);

    const QRectF target(card.x() - surroundings * ratio, card.y() + (offset - surroundings) * ratio,
        size.width() * sampleDistance * ratio, size.height() * sampleDistance * ratio);
    const QImage image = shadowImage(blurred);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    drawInBands(painter, target, [&] { painter.drawImage(target, image); });
    painter.restore();
}

} // namespace sablequill
