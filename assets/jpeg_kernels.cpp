#include "assets/jpeg_kernels.h"

#include "assets/jpeg_colour.h"
#include "assets/jpeg_transform.h"
#include "core/kernels.h"

namespace lumenfold {

const JpegKernels jpegPlainKernels = {jpegTransformPlain, jpegMixRows, jpegDoubleRow, jpegConvertRow};

const JpegKernels& jpegKernels() {
    const JpegKernels* vectorised = vectorCode() ? jpegVectorKernels() : nullptr;
    return vectorised != nullptr ? *vectorised : jpegPlainKernels;
}

} // namespace lumenfold
