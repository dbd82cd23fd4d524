#include "JpegEncoder.h"

#include "Picture.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>
#include <new>

namespace kor::veltrano::sim {

static_assert(sizeof(Color) == 3, "libjpeg reads the pixels as they are");

// What libjpeg changes must outlive a jump out of it, so all of that is here and none in a
// function.
struct JpegEncoder::State {
    jpeg_compress_struct compressor;
    jpeg_error_mgr errors;
    std::jmp_buf wayOut;
    unsigned char* bytes;
    unsigned long size;
};

namespace {

// libjpeg's own function would end the process.
template<typename State>
[[noreturn]] void leave(j_common_ptr compressor)
{
    std::longjmp(static_cast<State*>(compressor->client_data)->wayOut, 1);
}

void stayQuiet(j_common_ptr) { }

// Holds no object with a destructor, as the jump out of libjpeg would pass it by.
template<typename State>
bool compress(State& state, const Picture& picture, int quality)
{
    jpeg_compress_struct& compressor = state.compressor;
    if (setjmp(state.wayOut) != 0) {
        jpeg_abort_compress(&compressor);
        return false;
    }
    jpeg_mem_dest(&compressor, &state.bytes, &state.size);
    compressor.image_width = static_cast<JDIMENSION>(picture.width);
    compressor.image_height = static_cast<JDIMENSION>(picture.height);
    compressor.input_components = 3;
    compressor.in_color_space = JCS_RGB;
    jpeg_set_defaults(&compressor);
    jpeg_set_quality(&compressor, quality, TRUE);
    jpeg_start_compress(&compressor, TRUE);
    while (compressor.next_scanline < compressor.image_height) {
        const Color* const row = picture.row(static_cast<int>(compressor.next_scanline));
        // libjpeg only reads the row, although its interface does not say so.
        auto* samples = const_cast<JSAMPROW>(reinterpret_cast<const JSAMPLE*>(row));
        jpeg_write_scanlines(&compressor, &samples, 1);
    }
    jpeg_finish_compress(&compressor);
    return true;
}

} // namespace

JpegEncoder::JpegEncoder() : state(new State{})
{
    state->compressor.err = jpeg_std_error(&state->errors);
    state->compressor.client_data = state.get();
    state->errors.error_exit = leave<State>;
    state->errors.output_message = stayQuiet;
    if (setjmp(state->wayOut) != 0) {
        throw std::bad_alloc();
    }
    jpeg_create_compress(&state->compressor);
}

JpegEncoder::~JpegEncoder()
{
    jpeg_destroy_compress(&state->compressor);
}

QByteArray JpegEncoder::encode(const Picture& picture, int quality)
{
    const bool isWhole = compress(*state, picture, quality);
    QByteArray file = isWhole
        ? QByteArray(reinterpret_cast<const char*>(state->bytes), static_cast<int>(state->size))
        : QByteArray();
    std::free(state->bytes);
    state->bytes = nullptr;
    state->size = 0;
    return file;
}

} // namespace kor::veltrano::sim
