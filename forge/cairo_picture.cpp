#include "forge/cairo_picture.h"

#include <memory>
#include <stdexcept>

namespace lumenfold::art {

Picture drawn(int width, int height, const std::function<void(cairo_t*)>& draw) {
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, width, height), cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo(cairo_create(surface.get()), cairo_destroy);
    cairo_set_source_rgba(cairo.get(), 1, 1, 1, 1);
    draw(cairo.get());
    cairo_surface_flush(surface.get());
    if (cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(cairo_status_to_string(cairo_status(cairo.get())));
    }
    const unsigned char* bytes = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    Picture picture(width, height);
    picture.change([&](Colour, int x, int y) {
        const float coverage = static_cast<float>(bytes[static_cast<std::ptrdiff_t>(y) * stride + x]) / 255;
        return Colour{coverage, coverage, coverage};
    });
    return picture;
}

} // namespace lumenfold::art
