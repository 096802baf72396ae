#include "forge/canvas.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <stdexcept>

namespace lumenfold::art {

namespace {

constexpr int scale = 4;

double channel(std::uint32_t rgb, int shift) {
    return (rgb >> shift & 255) / 255.0;
}

struct FaceName {
    const char* family;
    const char* package;
    int weight;
};

FaceName nameOf(Canvas::Face face) {
    switch (face) {
    case Canvas::Face::Text:
        return {"Jura", "fonts-jura", FC_WEIGHT_MEDIUM};
    case Canvas::Face::TextBold:
        return {"Jura", "fonts-jura", FC_WEIGHT_BOLD};
    case Canvas::Face::Strong:
        return {"Play", "fonts-play", FC_WEIGHT_REGULAR};
    default:
        return {"Play", "fonts-play", FC_WEIGHT_BOLD};
    }
}

cairo_font_face_t* findFace(const FaceName& name) {
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(name.family));
    FcPatternAddInteger(wanted, FC_WEIGHT, name.weight);
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultNoMatch;
    FcPattern* found = FcFontMatch(nullptr, wanted, &result);
    FcPatternDestroy(wanted);
    FcChar8* family = nullptr;
    const bool installed = found != nullptr && FcPatternGetString(found, FC_FAMILY, 0, &family) == FcResultMatch &&
                           std::string(reinterpret_cast<const char*>(family)) == name.family;
    cairo_font_face_t* face = installed ? cairo_ft_font_face_create_for_pattern(found) : nullptr;
    if (found != nullptr)
        FcPatternDestroy(found);
    if (face == nullptr)
        throw std::runtime_error(std::string("font ") + name.family + " is not installed (package " + name.package +
                                 ")");
    return face;
}

} // namespace

Canvas::Canvas(int pictureWidth, int pictureHeight, std::uint32_t ground)
    : width(pictureWidth), height(pictureHeight),
      surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, pictureWidth * scale, pictureHeight * scale)),
      context(cairo_create(surface)) {
    cairo_scale(context, scale, scale);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
    ink(ground);
    cairo_paint(context);
}

Canvas::~Canvas() {
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

void Canvas::ink(std::uint32_t rgb, double alpha) const {
    cairo_set_source_rgba(context, channel(rgb, 16), channel(rgb, 8), channel(rgb, 0), alpha);
}

void Canvas::rectangle(double x, double y, double w, double h) const {
    cairo_rectangle(context, x, y, w, h);
    cairo_fill(context);
}

void Canvas::line(double x0, double y0, double x1, double y1, double thickness) const {
    cairo_set_line_width(context, thickness);
    cairo_move_to(context, x0, y0);
    cairo_line_to(context, x1, y1);
    cairo_stroke(context);
}

void Canvas::plane(std::initializer_list<Point2> corners, Stop from, Stop to) const {
    const Point2* corner = corners.begin();
    cairo_pattern_t* gradient =
        cairo_pattern_create_linear(static_cast<double>(corner[0].x), static_cast<double>(corner[0].y),
                                    static_cast<double>(corner[2].x), static_cast<double>(corner[2].y));
    const auto stop = [gradient](double at, Stop s) {
        cairo_pattern_add_color_stop_rgba(gradient, at, channel(s.rgb, 16), channel(s.rgb, 8), channel(s.rgb, 0),
                                          s.alpha);
    };
    stop(0, from);
    stop(1, to);
    cairo_set_source(context, gradient);
    for (const Point2& p : corners)
        cairo_line_to(context, static_cast<double>(p.x), static_cast<double>(p.y));
    cairo_close_path(context);
    cairo_fill(context);
    cairo_pattern_destroy(gradient);
}

void Canvas::select(Face face, double size) const {
    cairo_font_face_t* found = findFace(nameOf(face));
    cairo_set_font_face(context, found);
    cairo_font_face_destroy(found);
    cairo_set_font_size(context, size);
}

namespace {

// The letters of a UTF-8 text, one string each.
std::vector<std::string> lettersOf(const std::string& words) {
    std::vector<std::string> letters;
    for (const char byte : words) {
        if ((byte & 0xC0) == 0x80 && !letters.empty())
            letters.back() += byte;
        else
            letters.emplace_back(1, byte);
    }
    return letters;
}

double advanceOf(cairo_t* context, const std::string& letter) {
    cairo_text_extents_t extents;
    cairo_text_extents(context, letter.c_str(), &extents);
    return extents.x_advance;
}

} // namespace

double Canvas::text(double x, double y, const std::string& words, Face face, double size, double spacing) const {
    select(face, size);
    double pen = x;
    for (const std::string& letter : lettersOf(words)) {
        cairo_move_to(context, pen, y);
        cairo_show_text(context, letter.c_str());
        pen += advanceOf(context, letter) + spacing;
    }
    cairo_new_path(context);
    return pen - x - spacing;
}

double Canvas::widthOf(const std::string& words, Face face, double size, double spacing) const {
    select(face, size);
    double pen = 0;
    for (const std::string& letter : lettersOf(words))
        pen += advanceOf(context, letter) + spacing;
    return pen - spacing;
}

Bitmap Canvas::bitmap() const {
    cairo_surface_flush(surface);
    const unsigned char* bytes = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    Bitmap result{width, height, {}};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 2; c >= 0; --c) { // memory order is blue, green, red
                int sum = 0;
                for (int j = 0; j < scale; ++j)
                    for (int i = 0; i < scale; ++i)
                        sum += bytes[static_cast<std::ptrdiff_t>(y * scale + j) * stride + (x * scale + i) * 4 + c];
                result.rgb.push_back(static_cast<std::uint8_t>((sum + scale * scale / 2) / (scale * scale)));
            }
    return result;
}

Picture coverage(int width, int height, const std::function<void(cairo_t*)>& draw) {
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
