// Films the show, or one of its scenes, to files: the demo on the offline platform.

#include "core/vector_target.h"
#include "driver/error_text.h"
#include "driver/show.h"
#include "programs/film_show.h"
#include "programs/process_boundary.h"
#include "programs/show_folder.h"
#include "programs/system.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace lumenfold;
using namespace lumenfold::film;

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

std::unique_ptr<Output> makeOutput(const Options& options, const std::string& path) {
    switch (outputKind(path)) {
    case OutputKind::Film:
        return makeEncodedFilm(options, path);
    case OutputKind::Sound:
        return makeWaveFile(path);
    case OutputKind::Pictures:
        break;
    }
    return makePictureFolder(path);
}

int makeFilm(Options options) {
    std::FILE* lines = separateOutput();
    if (std::filesystem::exists(options.object)) // otherwise it is one of the show's
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

    if (!options.target.empty())
        useVectorTarget(options.target);
    catchInterrupts();
    if (!options.object.empty())
        std::fputs(filmObject(film, options).c_str(), stderr);
    else if (!options.scene.empty())
        filmScene(film, options);
    else
        filmShow(film, options);
    film.finish();
    for (const std::string& line : film.written())
        std::fprintf(stderr, "%s\n", line.c_str());
    constexpr int interruptedStatus = 130;
    return interrupted() ? interruptedStatus : 0;
}

} // namespace

int main(int count, char** arguments) {
    lumenfold::guardProcess();
    return lumenfold::runTool("lumenfold-film", [&] {
        const Options options = parseOptions({arguments + 1, arguments + count});
        if (!options.answer.empty()) {
            std::fputs(options.answer.c_str(), stdout);
            return 0;
        }
        try {
            return makeFilm(options);
        } catch (const DynamicError& error) {
            throw std::runtime_error(errorText(error));
        }
    });
}
