// The film tool's --hash for a browser or node: the same options and lines.

#include "programs/command_line.h"
#include "programs/film_show.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

using namespace lumenfold;

int main(int count, char** arguments) {
    return runTool("lumenfold-hash", [&] {
        const film::Options options = film::parseOptions({arguments + 1, arguments + count});
        std::cout.setstate(std::ios::failbit); // the object reader's commentary
        chdir("/show");
        film::Film film(options);
        film.add(film::makeHashLines(stdout));
        if (options.scene.empty())
            filmShow(film, options);
        else
            filmScene(film, options);
        film.finish();
        return 0;
    });
}
