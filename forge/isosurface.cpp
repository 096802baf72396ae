#include "forge/isosurface.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::art {

namespace {

struct Grid {
    Point low;
    double spacing;
    std::array<int, 3> size; // samples per axis
    std::vector<float> values;

    std::size_t at(int i, int j, int k) const {
        return (static_cast<std::size_t>(k) * static_cast<std::size_t>(size[1]) + static_cast<std::size_t>(j)) *
                   static_cast<std::size_t>(size[0]) +
               static_cast<std::size_t>(i);
    }
    Point place(double i, double j, double k) const { return low + Point{i, j, k} * spacing; }
};

Grid sample(const Solid& solid, Point low, Point high, double spacing) {
    const auto count = [spacing](double extent) { return static_cast<int>(std::ceil(extent / spacing)) + 1; };
    Grid grid{low, spacing, {count(high.x - low.x), count(high.y - low.y), count(high.z - low.z)}, {}};
    grid.values.reserve(grid.at(0, 0, grid.size[2]));
    for (int k = 0; k < grid.size[2]; ++k)
        for (int j = 0; j < grid.size[1]; ++j)
            for (int i = 0; i < grid.size[0]; ++i)
                grid.values.push_back(static_cast<float>(solid(grid.place(i, j, k))));
    return grid;
}

constexpr int cellEdges[12][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 2}, {1, 3},
                                  {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};

// The mean of the points where a cell's edges cross the surface; false where none does.
bool cellPoint(const Grid& grid, int i, int j, int k, Point& point) {
    std::array<double, 8> corner;
    for (int c = 0; c < 8; ++c)
        corner[static_cast<std::size_t>(c)] =
            static_cast<double>(grid.values[grid.at(i + (c & 1), j + (c >> 1 & 1), k + (c >> 2))]);
    Point sum;
    int crossings = 0;
    for (const auto& edge : cellEdges) {
        const double a = corner[static_cast<std::size_t>(edge[0])];
        const double b = corner[static_cast<std::size_t>(edge[1])];
        if ((a < 0) == (b < 0))
            continue;
        const auto at = [](int c) { return Point{double(c & 1), double(c >> 1 & 1), double(c >> 2)}; };
        sum = sum + at(edge[0]) + (at(edge[1]) - at(edge[0])) * (a / (a - b));
        ++crossings;
    }
    if (crossings == 0)
        return false;
    const Point mean = sum * (1.0 / crossings);
    point = grid.place(i + mean.x, j + mean.y, k + mean.z);
    return true;
}

Point gradient(const Solid& solid, Point p, double step) {
    return {solid(p + Point{step, 0, 0}) - solid(p - Point{step, 0, 0}),
            solid(p + Point{0, step, 0}) - solid(p - Point{0, step, 0}),
            solid(p + Point{0, 0, step}) - solid(p - Point{0, 0, step})};
}

void pullOntoSurface(const Solid& solid, Model& model, double spacing) {
    for (Point& p : model.points)
        for (int round = 0; round < 3; ++round) {
            const Point g = gradient(solid, p, spacing * 0.1) * (1 / (spacing * 0.2));
            const double steep = dot(g, g);
            if (steep > 1e-6) {
                const Point move = g * (-solid(p) / steep);
                const double far = length(move);
                p = p + move * (far > spacing * 0.5 ? spacing * 0.5 / far : 1.0);
            }
        }
}

} // namespace

Model meshSolid(const Solid& solid, Point low, Point high, double spacing) {
    const Grid grid = sample(solid, low, high, spacing);
    const auto [nx, ny, nz] = grid.size;
    Model model;
    std::vector<std::uint32_t> pointOf(grid.values.size(), UINT32_MAX);
    for (int k = 0; k + 1 < nz; ++k)
        for (int j = 0; j + 1 < ny; ++j)
            for (int i = 0; i + 1 < nx; ++i) {
                Point p;
                if (cellPoint(grid, i, j, k, p))
                    pointOf[grid.at(i, j, k)] = model.addPoint(p);
            }
    // every crossed grid edge joins the four cells around it
    for (int k = 1; k + 1 < nz; ++k)
        for (int j = 1; j + 1 < ny; ++j)
            for (int i = 1; i + 1 < nx; ++i)
                for (int axis = 0; axis < 3; ++axis) {
                    const int d[3] = {axis == 0, axis == 1, axis == 2};
                    const bool inside = grid.values[grid.at(i, j, k)] < 0;
                    if (inside == (grid.values[grid.at(i + d[0], j + d[1], k + d[2])] < 0))
                        continue;
                    const int u[3] = {axis == 2, axis == 0, axis == 1};
                    const int v[3] = {axis == 1, axis == 2, axis == 0};
                    const auto cell = [&](int a, int b) {
                        return pointOf[grid.at(i - a * u[0] - b * v[0], j - a * u[1] - b * v[1],
                                               k - a * u[2] - b * v[2])];
                    };
                    if (inside)
                        model.addQuad(cell(1, 1), cell(0, 1), cell(0, 0), cell(1, 0), 0);
                    else
                        model.addQuad(cell(1, 1), cell(1, 0), cell(0, 0), cell(0, 1), 0);
                }
    pullOntoSurface(solid, model, spacing);
    return model;
}

} // namespace lumenfold::art
