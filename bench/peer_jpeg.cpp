#include "bench/peer_jpeg.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <sys/wait.h>
#include <turbojpeg.h>
#include <unistd.h>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_JPEG
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#endif
#include <stb/stb_image.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace lumenfold::bench {

void decodeWithTurbo(const FileBytes& file, PeerPicture& picture) {
    const std::unique_ptr<void, int (*)(tjhandle)> decoder(tjInitDecompress(), tjDestroy);
    int subsampling = 0;
    int colours = 0;
    if (tjDecompressHeader3(decoder.get(), file.data(), static_cast<unsigned long>(file.size()), &picture.width,
                            &picture.height, &subsampling, &colours) != 0)
        throw std::runtime_error("libjpeg-turbo: no header");
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) * 4);
    if (tjDecompress2(decoder.get(), file.data(), static_cast<unsigned long>(file.size()), picture.pixels.data(),
                      picture.width, 0, picture.height, TJPF_BGRX, 0) != 0)
        throw std::runtime_error("libjpeg-turbo: cannot decode");
}

void decodeWithStb(const FileBytes& file, PeerPicture& picture) {
    int components = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &picture.width, &picture.height, &components,
                              4),
        stbi_image_free);
    if (pixels == nullptr)
        throw std::runtime_error("stb_image: cannot decode");
}

double withoutTurboVectors(double (*work)(const std::vector<FileBytes>& files), const std::vector<FileBytes>& files) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        // read once, when the library is first used in a process
        setenv("JSIMD_FORCENONE", "1", 1);
        double result = 0.0;
        try {
            result = work(files);
        } catch (const std::exception&) {
            _exit(1);
        }
        _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(ends[1]);
    double result = 0.0;
    const bool complete = child > 0 && read(ends[0], &result, sizeof result) == sizeof result;
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    if (!complete)
        throw std::runtime_error("libjpeg-turbo: the comparison without vector code failed");
    return result;
}

} // namespace lumenfold::bench
