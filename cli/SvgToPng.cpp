#include "cli/SvgToPng.h"

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <memory>

namespace {

struct TGObjectUnref {
  void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
};
struct TSurfaceDestroy {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct TCairoDestroy {
  void operator()(cairo_t* cr) const { cairo_destroy(cr); }
};

std::string TakeMessage(GError* error) {
  std::string text = error ? error->message : "unknown error";
  if (error) g_error_free(error);
  return text;
}

}  // namespace

std::optional<std::string> WriteSvgAsPng(const std::string& svg, double scale,
                                         const std::string& path) {
  GError* error = nullptr;
  std::unique_ptr<RsvgHandle, TGObjectUnref> handle(
      rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), &error));
  if (!handle) return "Cannot read the drawing: " + TakeMessage(error);
  gdouble width = 0, height = 0;
  if (!rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height))
    return std::string("The drawing has no size");
  const int nWidth = static_cast<int>(width * scale), nHeight = static_cast<int>(height * scale);
  std::unique_ptr<cairo_surface_t, TSurfaceDestroy> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, nWidth, nHeight));
  std::unique_ptr<cairo_t, TCairoDestroy> cr(cairo_create(surface.get()));
  const RsvgRectangle viewport{0, 0, static_cast<double>(nWidth), static_cast<double>(nHeight)};
  if (!rsvg_handle_render_document(handle.get(), cr.get(), &viewport, &error))
    return "Cannot draw the diagram: " + TakeMessage(error);
  if (cairo_surface_write_to_png(surface.get(), path.c_str()) != CAIRO_STATUS_SUCCESS)
    return "Error writing file: " + path;
  return std::nullopt;
}
