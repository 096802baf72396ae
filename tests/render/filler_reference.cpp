#include "filler_reference.h"

#include <cmath>
#include <limits>

namespace lumenfold::reference {

namespace {

std::int32_t toInteger(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(std::trunc(value));
}

// the low 32 bits
std::int32_t wrapped(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint64_t>(value));
}

Pixel32 texelOf(const Pixel32* texture, std::int32_t column, std::int32_t row) {
    return texture[((row >> 16) & 255) * 256 + ((column >> 16) & 255)];
}

Pixel32 sum(Pixel32 a, Pixel32 b) {
    Pixel32 result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const Pixel32 byte = (a >> shift & 255) + (b >> shift & 255);
        result |= (byte > 255 ? 255 : byte) << shift;
    }
    return result;
}

enum { quantityW, quantityU, quantityV, quantities };

struct Vertex {
    float x, y;
    float q[quantities];
};

struct Edge {
    float x = 0.0F, slope = 0.0F;
    float q[quantities] = {};
    float step[quantities] = {};
};

struct Job {
    const Pixel32* texture;
    const Picture* picture;
    float depthBias;
    Operation operation;
    std::int32_t scroll;
    float perPixel[quantities];
    float perRow[quantities];
};

void perspectivePixel(const Job& job, std::int64_t i, float w, std::int32_t u, std::int32_t v) {
    const float d = w + job.depthBias;
    if (!(job.picture->depth[i] < d))
        return;
    Pixel32& pixel = job.picture->target[i];
    if (job.operation == Operation::Opaque) {
        pixel = texelOf(job.texture, u, v);
        job.picture->depth[i] = d;
    } else {
        pixel = sum(texelOf(job.texture, wrapped(u + std::int64_t{job.scroll} * 65536), v), pixel);
    }
}

void perspectiveRow(const Job& job, std::int32_t row, float leftX, float rightX, const float (&left)[quantities]) {
    const std::int32_t width = job.picture->width;
    if (row < 0 || row >= job.picture->height)
        return;
    std::int32_t xl = toInteger(leftX);
    std::int32_t xr = toInteger(rightX);
    if (xl < 0)
        xl = 0;
    if (xr > width)
        xr = width;
    if (xr <= xl)
        return;
    std::int32_t n = xr - xl;
    std::int64_t at = std::int64_t{row} * width + xl;
    const float p = 1.0F - (leftX - static_cast<float>(xl));
    float w = left[quantityW] + p * job.perPixel[quantityW];
    float U = left[quantityU] + p * job.perPixel[quantityU];
    float V = left[quantityV] + p * job.perPixel[quantityV];
    std::int32_t u = toInteger(65536.0F / w * U);
    std::int32_t v = toInteger(65536.0F / w * V);
    while (n >= 16) {
        const float w1 = w + 16.0F * job.perPixel[quantityW];
        const float U1 = U + 16.0F * job.perPixel[quantityU];
        const float V1 = V + 16.0F * job.perPixel[quantityV];
        const std::int32_t u1 = toInteger(65536.0F / w1 * U1);
        const std::int32_t v1 = toInteger(65536.0F / w1 * V1);
        const std::int32_t du = wrapped(std::int64_t{u1} - u) >> 4;
        const std::int32_t dv = wrapped(std::int64_t{v1} - v) >> 4;
        const float dz = (w1 - w) * 0.0625F;
        for (int i = 0; i < 16; ++i) {
            perspectivePixel(job, at++, w, u, v);
            u = wrapped(std::int64_t{u} + du);
            v = wrapped(std::int64_t{v} + dv);
            w += dz;
        }
        u = u1;
        v = v1;
        w = w1;
        U = U1;
        V = V1;
        n -= 16;
    }
    if (n > 0) {
        const float count = static_cast<float>(n);
        const float we = w + count * job.perPixel[quantityW];
        const std::int32_t ue = toInteger((U + count * job.perPixel[quantityU]) * 65536.0F / we);
        const std::int32_t ve = toInteger((V + count * job.perPixel[quantityV]) * 65536.0F / we);
        const std::int32_t du = wrapped(std::int64_t{ue} - u) / n;
        const std::int32_t dv = wrapped(std::int64_t{ve} - v) / n;
        for (int i = 0; i < n; ++i) {
            perspectivePixel(job, at++, w, u, v);
            u = wrapped(std::int64_t{u} + du);
            v = wrapped(std::int64_t{v} + dv);
            w += job.perPixel[quantityW];
        }
    }
}

Edge startEdge(const Job& job, const Vertex& from, const Vertex& to) {
    Edge edge;
    if (!(to.y > from.y))
        return edge;
    edge.slope = (to.x - from.x) / (to.y - from.y);
    const float p = 1.0F - (from.y - static_cast<float>(toInteger(from.y)));
    edge.x = from.x + edge.slope * p;
    for (int k = 0; k < quantities; ++k) {
        edge.step[k] = job.perPixel[k] * edge.slope + job.perRow[k];
        edge.q[k] = from.q[k] + edge.step[k] * p;
    }
    return edge;
}

void advance(Edge& edge) {
    edge.x += edge.slope;
    for (int k = 0; k < quantities; ++k)
        edge.q[k] += edge.step[k];
}

void exchange(Vertex& a, Vertex& b) {
    const Vertex c = a;
    a = b;
    b = c;
}

} // namespace

void perspective(const PerspectiveCorner (&corners)[3], const Pixel32* texture, const Picture& picture, float depthBias,
                 Operation operation, std::int32_t scroll) {
    Vertex vertices[3];
    for (int i = 0; i < 3; ++i) {
        const float w = 1.0F / corners[i].z;
        vertices[i] = {corners[i].x + 0.5F, corners[i].y + 0.5F, {w, w * corners[i].u, w * corners[i].v}};
    }
    if (vertices[1].y < vertices[0].y)
        exchange(vertices[0], vertices[1]);
    if (vertices[2].y < vertices[0].y)
        exchange(vertices[0], vertices[2]);
    if (vertices[2].y < vertices[1].y)
        exchange(vertices[1], vertices[2]);
    const Vertex& top = vertices[0];
    const Vertex& mid = vertices[1];
    const Vertex& bottom = vertices[2];

    const std::int32_t yt = toInteger(top.y);
    const std::int32_t ym = toInteger(mid.y);
    const std::int32_t yb = toInteger(bottom.y);
    if (yt >= yb)
        return;
    if (toInteger(top.x) == toInteger(mid.x) && toInteger(mid.x) == toInteger(bottom.x))
        return;
    const float dX1 = mid.x - top.x;
    const float dY1 = mid.y - top.y;
    const float dX2 = bottom.x - top.x;
    const float dY2 = bottom.y - top.y;
    const float den = dX2 * dY1 - dX1 * dY2;
    if (den == 0.0F)
        return;
    Job job{texture, &picture, depthBias, operation, scroll, {}, {}};
    for (int k = 0; k < quantities; ++k) {
        const float dq1 = mid.q[k] - top.q[k];
        const float dq2 = bottom.q[k] - top.q[k];
        job.perPixel[k] = (dq2 * dY1 - dq1 * dY2) / den;
        job.perRow[k] = (dq1 * dX2 - dq2 * dX1) / den;
    }

    Edge topMid = startEdge(job, top, mid);
    Edge topBottom = startEdge(job, top, bottom);
    Edge midBottom = startEdge(job, mid, bottom);
    bool midIsLeft = topBottom.slope > topMid.slope;
    if (top.y == mid.y)
        midIsLeft = top.x > mid.x;
    if (mid.y == bottom.y)
        midIsLeft = bottom.x > mid.x;
    for (std::int32_t row = yt; row < yb; ++row) {
        Edge& shortEdge = row < ym ? topMid : midBottom;
        Edge& left = midIsLeft ? shortEdge : topBottom;
        Edge& right = midIsLeft ? topBottom : shortEdge;
        perspectiveRow(job, row, left.x, right.x, left.q);
        advance(shortEdge);
        advance(topBottom);
    }
}

void affineSpan(SpanEnd a, SpanEnd b, std::int32_t row, const Pixel32* texture, const Pixel32* second,
                const Picture& picture, float depthBias, Operation operation) {
    if (row < 0 || row >= picture.height)
        return;
    if (a.x >> 16 == b.x >> 16)
        return;
    if (a.x >> 16 > b.x >> 16) {
        const SpanEnd c = a;
        a = b;
        b = c;
    }
    std::int32_t xl = a.x >> 16;
    std::int32_t xr = b.x >> 16;
    const std::int32_t n = xr - xl;
    const float dw = (1.0F / b.z - 1.0F / a.z) / static_cast<float>(n);
    float d = 1.0F / a.z + depthBias;
    std::int32_t at[4];
    std::int32_t step[4];
    for (int k = 0; k < 4; ++k) {
        at[k] = a.coordinates[k];
        const std::int32_t difference = wrapped(std::int64_t{b.coordinates[k]} - a.coordinates[k]);
        step[k] = toInteger(static_cast<double>(difference) / static_cast<double>(n));
    }
    if (xl < 0) {
        const std::int32_t skipped = -xl;
        d += static_cast<float>(skipped) * dw;
        for (int k = 0; k < 4; ++k)
            at[k] = wrapped(at[k] + std::int64_t{skipped} * step[k]);
        xl = 0;
    }
    if (xl >= picture.width || xr < 0)
        return;
    if (xr >= picture.width)
        xr = picture.width - 1;
    for (std::int32_t x = xl; x < xr; ++x) {
        const std::int64_t i = std::int64_t{row} * picture.width + x;
        if (d - depthBias > 0.0F && picture.depth[i] < d) {
            Pixel32& pixel = picture.target[i];
            if (second != nullptr)
                pixel = sum(texelOf(texture, at[1], at[0]), texelOf(second, at[3], at[2]));
            else if (operation == Operation::Add)
                pixel = sum(texelOf(texture, at[0], at[1]), pixel);
            else
                pixel = texelOf(texture, at[0], at[1]);
            picture.depth[i] = d;
        }
        for (int k = 0; k < 4; ++k)
            at[k] = wrapped(std::int64_t{at[k]} + step[k]);
        d += dw;
    }
}

namespace {

struct Snapped {
    std::int32_t x, y;
    float z;
    std::int32_t c[4];
};

// The span end `rows` below the first corner of an edge; z added up row by row.
struct EdgeWalk {
    SpanEnd end, step;

    EdgeWalk(const Snapped& from, const Snapped& to) : end{}, step{} {
        const std::int32_t dy = to.y - from.y;
        const auto fixed = [](std::int64_t value) { return wrapped(value * 65536); };
        end.x = fixed(from.x);
        end.z = from.z;
        if (dy != 0) {
            step.x = fixed(std::int64_t{to.x} - from.x) / dy;
            step.z = (to.z - from.z) / static_cast<float>(dy);
        }
        for (int k = 0; k < 4; ++k) {
            end.coordinates[k] = fixed(from.c[k]);
            step.coordinates[k] = dy != 0 ? fixed(std::int64_t{to.c[k]} - from.c[k]) / dy : 0;
        }
    }

    void advance() {
        end.x = wrapped(std::int64_t{end.x} + step.x);
        end.z += step.z;
        for (int k = 0; k < 4; ++k)
            end.coordinates[k] = wrapped(std::int64_t{end.coordinates[k]} + step.coordinates[k]);
    }
};

} // namespace

void affine(const AffineCorner (&corners)[3], const Pixel32* texture, const Pixel32* second, const Picture& picture,
            float depthBias, Operation operation) {
    Snapped s[3];
    for (int i = 0; i < 3; ++i) {
        const AffineCorner& c = corners[i];
        s[i] = {
            toInteger(c.x), toInteger(c.y), c.z, {toInteger(c.u1), toInteger(c.v1), toInteger(c.u2), toInteger(c.v2)}};
    }
    const int pairs[4][2] = {{0, 1}, {1, 2}, {0, 2}, {0, 1}};
    for (const auto& pair : pairs) {
        if (s[pair[0]].y > s[pair[1]].y) {
            const Snapped c = s[pair[0]];
            s[pair[0]] = s[pair[1]];
            s[pair[1]] = c;
        }
    }
    EdgeWalk upper(s[0], s[1]);
    EdgeWalk whole(s[0], s[2]);
    EdgeWalk lower(s[1], s[2]);
    for (std::int32_t row = s[0].y; row < s[1].y; ++row) {
        affineSpan(upper.end, whole.end, row, texture, second, picture, depthBias, operation);
        upper.advance();
        whole.advance();
    }
    std::int32_t last = s[2].y;
    if (last > picture.height)
        last = picture.height;
    for (std::int32_t row = s[1].y; row < last; ++row) {
        affineSpan(lower.end, whole.end, row, texture, second, picture, depthBias, operation);
        lower.advance();
        whole.advance();
    }
}

} // namespace lumenfold::reference
