#pragma once

#include <string>

// One function per full-screen picture; each writes the finished file. The list of recipes stands in
// recipes.cpp.

namespace lumenfold::art {

void makeOilPool(const std::string& path);
void makeMachineCore(const std::string& path);
void makeFireWreath(const std::string& path);
void makeMasonry(const std::string& path);
void makeIvoryStage(const std::string& path);
void makeForgeDoor(const std::string& path);

} // namespace lumenfold::art
