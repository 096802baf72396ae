#include "bench/report.h"

#include "bench/measure.h"

#include <cstdio>

namespace lumenfold::bench {

Report::Report(Format format) : format_(format) {
    if (format_ == Format::Csv)
        std::printf("name,value,unit,peer,peer value,ratio\n");
    else
        std::printf("%-44s %10s %-10s %-26s %10s %8s\n", "", "value", "", "peer", "", "ratio");
}

void Report::section(const char* title) {
    if (format_ == Format::Table)
        std::printf("\n%s\n", title);
}

void Report::add(const std::string& name, double value, const char* unit) {
    print({name, value, unit, "", 0.0, 0.0});
}

void Report::add(const std::string& name, double value, const char* unit, const char* peer, double peerValue) {
    print({name, value, unit, peer, peerValue, value / peerValue});
}

void Report::addTime(const std::string& name, double microseconds) {
    add(name, microseconds, "us", "copy", copyMicroseconds());
}

void Report::print(const Row& row) const {
    if (format_ == Format::Csv && row.peer.empty())
        std::printf("\"%s\",%.6g,%s,,,\n", row.name.c_str(), row.value, row.unit.c_str());
    else if (format_ == Format::Csv)
        std::printf("\"%s\",%.6g,%s,%s,%.6g,%.4g\n", row.name.c_str(), row.value, row.unit.c_str(), row.peer.c_str(),
                    row.peerValue, row.ratio);
    else if (row.peer.empty())
        std::printf("%-44s %10.1f %-10s\n", row.name.c_str(), row.value, row.unit.c_str());
    else
        std::printf("%-44s %10.1f %-10s %-26s %10.1f %8.2f\n", row.name.c_str(), row.value, row.unit.c_str(),
                    row.peer.c_str(), row.peerValue, row.ratio);
    std::fflush(stdout);
}

} // namespace lumenfold::bench
