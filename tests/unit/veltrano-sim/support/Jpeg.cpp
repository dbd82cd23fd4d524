#include "support/Jpeg.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace kor::veltrano::sim {

namespace {

struct Reading {
    jpeg_decompress_struct decompressor;
    jpeg_error_mgr errors;
    std::jmp_buf wayOut;
};

[[noreturn]] void leave(j_common_ptr decompressor)
{
    std::longjmp(static_cast<Reading*>(decompressor->client_data)->wayOut, 1);
}

// A warning, as of a file that is cut off, counts as an error.
void leaveOnWarning(j_common_ptr decompressor, int level)
{
    if (level < 0) {
        leave(decompressor);
    }
}

bool readHeader(Reading& reading, const QByteArray& file)
{
    if (setjmp(reading.wayOut) != 0) {
        return false;
    }
    jpeg_create_decompress(&reading.decompressor);
    jpeg_mem_src(&reading.decompressor, reinterpret_cast<const unsigned char*>(file.constData()),
                 static_cast<unsigned long>(file.size()));
    jpeg_read_header(&reading.decompressor, TRUE);
    reading.decompressor.out_color_space = JCS_RGB;
    return true;
}

bool readPixels(Reading& reading, Picture& picture)
{
    jpeg_decompress_struct& decompressor = reading.decompressor;
    if (setjmp(reading.wayOut) != 0) {
        return false;
    }
    jpeg_start_decompress(&decompressor);
    while (decompressor.output_scanline < decompressor.output_height) {
        const int index = static_cast<int>(decompressor.output_scanline);
        auto* samples = reinterpret_cast<JSAMPROW>(picture.row(index));
        jpeg_read_scanlines(&decompressor, &samples, 1);
    }
    jpeg_finish_decompress(&decompressor);
    return true;
}

} // namespace

std::optional<Picture> decodeJpeg(const QByteArray& file)
{
    Reading reading{};
    reading.decompressor.err = jpeg_std_error(&reading.errors);
    reading.decompressor.client_data = &reading;
    reading.errors.error_exit = leave;
    reading.errors.emit_message = leaveOnWarning;
    std::optional<Picture> picture;
    if (readHeader(reading, file)) {
        picture.emplace(static_cast<int>(reading.decompressor.image_width),
                        static_cast<int>(reading.decompressor.image_height));
        if (!readPixels(reading, *picture)) {
            picture.reset();
        }
    }
    jpeg_destroy_decompress(&reading.decompressor);
    return picture;
}

bool isAbout(Color color, Color other, int tolerance)
{
    return std::abs(color.red - other.red) <= tolerance
        && std::abs(color.green - other.green) <= tolerance
        && std::abs(color.blue - other.blue) <= tolerance;
}

} // namespace kor::veltrano::sim
