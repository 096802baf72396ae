// Films the show, or one of its scenes, to files: the demo on the offline platform.

#include "core/kernels.h"
#include "driver/error_text.h"
#include "driver/show.h"
#include "programs/film_show.h"
#include "programs/show_folder.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace lumenfold;
using namespace lumenfold::film;

// The object reader comments on standard output. The film's own lines go to a copy of it, the comments nowhere.
std::FILE* separateOutput() {
    std::fflush(stdout);
    std::FILE* own = fdopen(dup(STDOUT_FILENO), "w");
    std::FILE* nowhere = std::fopen("/dev/null", "w");
    if (own == nullptr || nowhere == nullptr)
        throw std::runtime_error("standard output cannot be opened again");
    dup2(fileno(nowhere), STDOUT_FILENO);
    std::fclose(nowhere);
    return own;
}

std::string fullPath(const std::string& path) {
    return path.empty() ? path : std::filesystem::absolute(path).string();
}

bool holdsShow(const std::filesystem::path& folder) {
    return std::filesystem::exists(folder / "bzzzz.xm");
}

// The demo reads its files from the working directory.
void enterShowFolder(const std::string& asked) {
    std::filesystem::path folder = asked;
    if (asked.empty())
        for (const std::filesystem::path& candidate :
             {std::filesystem::path("show"), std::filesystem::path("."), lumenfold::installedShow()})
            if (folder.empty() && holdsShow(candidate))
                folder = candidate;
    if (folder.empty())
        throw std::runtime_error("the show's files are not in ./show, in this folder or in " +
                                 lumenfold::installedShow().string() + "; --show FOLDER names their place");
    std::error_code error;
    std::filesystem::current_path(folder, error);
    if (error)
        throw std::runtime_error(folder.string() + ": " + error.message());
}

std::string objectFile(const std::string& object) {
    return object.substr(0, object.find(','));
}

std::string ending(const std::string& fileName) {
    return std::filesystem::path(fileName).extension().string();
}

std::unique_ptr<Output> makeOutput(const Options& options, const std::string& path) {
    const std::string kind = ending(path);
    if (kind == ".wav")
        return makeWaveFile(path);
    if (kind == ".mp4" || kind == ".mkv") {
        const auto factor = options.object.empty() ? static_cast<std::int32_t>(options.scale) : 1;
        return makeEncodedFilm(path, options.fps, frameInfo.width * factor, frameInfo.height * factor);
    }
    if (!kind.empty())
        throw UsageError(path + ": films are .mp4 or .mkv, sound is .wav, pictures go to a folder");
    return makePictureFolder(path);
}

int makeFilm(Options options) {
    std::FILE* lines = separateOutput();
    if (std::filesystem::exists(objectFile(options.object))) // otherwise it is one of the show's
        options.object = fullPath(options.object);
    const std::string output = fullPath(options.output);
    const std::string sheet = fullPath(options.sheet);
    enterShowFolder(options.showFolder);

    Film film(options);
    if (!output.empty())
        film.add(makeOutput(options, output));
    if (options.hash)
        film.add(makeHashLines(lines));
    if (!sheet.empty())
        film.add(makeContactSheet(sheet, options.fps, !options.scene.empty() || !options.object.empty()));
    if (options.timeline)
        film.add(makeTimelineTable(lines, options.fps));

    setVectorCode(!options.plain);
    catchInterrupts();
    if (!options.object.empty())
        std::fputs(filmObject(film, options).c_str(), stderr);
    else if (!options.scene.empty())
        filmScene(film, options);
    else
        filmShow(film, options);
    film.finish();
    constexpr int interruptedStatus = 130;
    return interrupted() ? interruptedStatus : 0;
}

int fail(const std::string& message) {
    std::fprintf(stderr, "lumenfold-film: %s\n", message.c_str());
    return 1;
}

} // namespace

int main(int count, char** arguments) {
    try {
        const Options options = parseOptions(std::vector<std::string>(arguments + 1, arguments + count));
        if (options.help || options.scene == "list") {
            std::fputs(options.help ? helpText().c_str() : sceneNames().c_str(), stdout);
            return 0;
        }
        return makeFilm(options);
    } catch (const DynamicError& error) {
        return fail(errorText(error));
    } catch (const UsageError& error) {
        fail(error.what());
        std::fputs("lumenfold-film --help lists the options\n", stderr);
        constexpr int usageStatus = 2;
        return usageStatus;
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
