#include "host/PngPicture.h"

#include <png.h>

namespace pedl {

Done writePng(const WindowPicture& picture, OutputFile& file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.size.widthPixels);
    image.height = static_cast<png_uint_32>(picture.size.heightPixels);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t bytes = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<std::uint8_t> encoded(bytes);
    if (png_image_write_to_memory(&image, encoded.data(), &bytes, 0, picture.bytes.data(), 0,
                                  nullptr) == 0)
        return Problem{std::string("the picture cannot be made: ") + image.message};
    file.write(encoded.data(), bytes);
    return file.state();
}

} // namespace pedl
