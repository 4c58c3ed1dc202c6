#include "resources/painter/Canvas.h"

#include "resources/painter/Field.h"
#include "resources/painter/Patch.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace pedl::skin {

namespace {

using Surface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using Context = std::unique_ptr<cairo_t, CairoDeleter>;

Surface makeSurface(cairo_format_t format, int width, int height) {
    Surface surface(cairo_image_surface_create(format, width, height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error("no memory for a picture");
    return surface;
}

unsigned char* rowOf(cairo_surface_t* surface, int row) {
    return cairo_image_surface_get_data(surface) +
           static_cast<std::ptrdiff_t>(row) * cairo_image_surface_get_stride(surface);
}

Surface surfaceOf(const Picture& picture) {
    Surface surface = makeSurface(CAIRO_FORMAT_ARGB32, picture.width, picture.height);
    cairo_surface_flush(surface.get());
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(rowOf(surface.get(), y),
                    picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width,
                    static_cast<std::size_t>(picture.width) * sizeof(std::uint32_t));
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

/// A box of device pixels.
struct Box {
    int left, top, right, bottom;

    [[nodiscard]] int width() const { return right - left; }
    [[nodiscard]] int height() const { return bottom - top; }
};

/// How much of each pixel of the box the path covers, 0..1.
Field coverage(const Path& path, int scale, const Box& box, double dx, double dy) {
    const Surface mask = makeSurface(CAIRO_FORMAT_A8, box.width(), box.height());
    const Context context(cairo_create(mask.get()));
    cairo_translate(context.get(), -box.left, -box.top);
    cairo_scale(context.get(), scale, scale);
    cairo_translate(context.get(), dx, dy);
    path(context.get());
    cairo_fill(context.get());
    cairo_surface_flush(mask.get());
    Field field(box.width(), box.height());
    for (int y = 0; y < field.height; ++y)
        std::transform(rowOf(mask.get(), y), rowOf(mask.get(), y) + field.width, field.row(y),
                       [](unsigned char value) { return static_cast<float>(value) / 255.0F; });
    return field;
}

} // namespace

std::uint32_t toWord(float red, float green, float blue, float alpha, float nudge) {
    const auto level = [nudge](float value) {
        return std::clamp(static_cast<int>(std::floor(value * 255.0F + nudge + 0.5F)), 0, 255);
    };
    const int a = level(alpha);
    const auto part = [a, &level](float value) {
        return static_cast<std::uint32_t>(std::min(level(value), a));
    };
    return static_cast<std::uint32_t>(a) << 24U | part(red) << 16U | part(green) << 8U | part(blue);
}

Canvas::Canvas(double width, double height, int scale)
    : scale_(scale),
      surface_(makeSurface(CAIRO_FORMAT_ARGB32, static_cast<int>(std::lround(width * scale)),
                           static_cast<int>(std::lround(height * scale)))),
      context_(cairo_create(surface_.get())) {
    cairo_scale(context(), scale, scale);
}

void Canvas::addPath(const Path& path) {
    cairo_new_path(context());
    path(context());
}

void Canvas::fill(const Path& path, const Paint& paint) {
    addPath(path);
    cairo_set_source(context(), paint.get());
    cairo_fill(context());
}

void Canvas::stroke(const Path& path, double lineWidth, const Paint& paint) {
    addPath(path);
    cairo_set_line_width(context(), lineWidth);
    cairo_set_source(context(), paint.get());
    cairo_stroke(context());
}

void Canvas::strokeRound(const Path& path, double lineWidth, const Paint& paint) {
    cairo_save(context());
    cairo_set_line_cap(context(), CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context(), CAIRO_LINE_JOIN_ROUND);
    stroke(path, lineWidth, paint);
    cairo_restore(context());
}

void Canvas::soft(const Path& path, const Soft& soft) {
    softened(path, soft, nullptr);
}

void Canvas::softInside(const Path& path, const Soft& soft) {
    softened(path, soft, &path);
}

void Canvas::softened(const Path& path, const Soft& soft, const Path* inside) {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    addPath(path);
    cairo_path_extents(context(), &left, &top, &right, &bottom);
    cairo_user_to_device(context(), &left, &top);
    cairo_user_to_device(context(), &right, &bottom);
    const double sigma = soft.sigma * scale_;
    const int reach = static_cast<int>(4.0 * sigma + 2.0);
    const auto whole = [](double value) { return static_cast<int>(std::floor(value)); };
    const int shiftX = whole(soft.dx * scale_);
    const int shiftY = whole(soft.dy * scale_);
    const Box box{whole(left) + std::min(shiftX, 0) - reach,
                  whole(top) + std::min(shiftY, 0) - reach,
                  whole(right) + std::max(shiftX, 0) + reach + 2,
                  whole(bottom) + std::max(shiftY, 0) + reach + 2};
    Field field = coverage(path, scale_, box, soft.dx, soft.dy);
    if (inside != nullptr)
        for (float& value : field.values)
            value = 1.0F - value;
    blur(field, sigma);
    Picture shade{box.width(), box.height(), {}};
    shade.pixels.reserve(field.values.size());
    for (int y = 0; y < field.height; ++y)
        for (int x = 0; x < field.width; ++x) {
            const float alpha = field.row(y)[x] * static_cast<float>(soft.alpha);
            const float nudge =
                alpha > 0.0F ? evenNoise(11, box.left + x, box.top + y) - 0.5F : 0.0F;
            shade.pixels.push_back(toWord(soft.colour.red * alpha, soft.colour.green * alpha,
                                          soft.colour.blue * alpha, alpha, nudge));
        }
    const auto draw = [&] { putAt(shade, box.left, box.top); };
    if (inside != nullptr)
        clipped(*inside, draw);
    else
        draw();
}

void Canvas::putAt(const Picture& picture, int column, int row) {
    const Surface surface = surfaceOf(picture);
    cairo_save(context());
    cairo_identity_matrix(context());
    cairo_set_source_surface(context(), surface.get(), column, row);
    cairo_pattern_set_filter(cairo_get_source(context()), CAIRO_FILTER_NEAREST);
    cairo_paint(context());
    cairo_restore(context());
}

void Canvas::put(const Picture& picture, double x, double y) {
    putAt(picture, static_cast<int>(std::lround(x * scale_)),
          static_cast<int>(std::lround(y * scale_)));
}

void Canvas::clipped(const Path& path, const std::function<void()>& draw) {
    cairo_save(context());
    addPath(path);
    cairo_clip(context());
    draw();
    cairo_restore(context());
}

void Canvas::placed(double x, double y, double factor, const std::function<void()>& draw) {
    cairo_save(context());
    cairo_translate(context(), x, y);
    cairo_scale(context(), factor, factor);
    draw();
    cairo_restore(context());
}

Picture Canvas::picture() const {
    cairo_surface_flush(surface_.get());
    Picture picture{cairo_image_surface_get_width(surface_.get()),
                    cairo_image_surface_get_height(surface_.get()),
                    {}};
    picture.pixels.resize(static_cast<std::size_t>(picture.width) *
                          static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width,
                    rowOf(surface_.get(), y),
                    static_cast<std::size_t>(picture.width) * sizeof(std::uint32_t));
    return picture;
}

} // namespace pedl::skin
