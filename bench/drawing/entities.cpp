#include "drawing/entities.hpp"

#include <cmath>
#include <string>

// The order in which arguments are evaluated is the compiler's choice: to give equal bytes everywhere, no
// call below draws two random numbers in its arguments.

namespace bench {

namespace {

constexpr int kDegree = 3;

// Some flat words, as notes in drawings have them.
std::string words(Random& random) {
    std::string text;
    for (int left = random.integer(1, 5); left > 0; --left) {
        if (!text.empty()) text += ' ';
        text += kLayers[random.integer(0, kLayers.size())];
        text += std::to_string(random.integer(0, 1000));
    }
    return text;
}

}  // namespace

Handle EntityMaker::begin(std::string_view type, Handle owner) {
    const Handle handle = out_.next_handle();
    out_.put(0, type, 5, handle, 330, owner, 100, "AcDbEntity", 8,
             kLayers[random_.integer(0, kLayers.size())]);
    if (random_.chance(0.25)) out_.put(62, random_.integer(1, 256));
    return handle;
}

void EntityMaker::put_place(int code, Place place) {
    out_.put(code, place.x, code + 10, place.y);
}

void EntityMaker::put_place(int code, Place place, double z) {
    out_.put(code, place.x, code + 10, place.y, code + 20, z);
}

void EntityMaker::extended_data() {
    out_.put(1001, "BENCH", 1000, "part " + std::to_string(random_.integer(0, 100000)));
    out_.put(1040, random_.unit(), 1071, 12345);
}

void EntityMaker::r12_line() {
    const Place start = place(), step = place(extent_ / 100);
    out_.put(0, "LINE", 8, kLayers[random_.integer(0, kLayers.size())]);
    put_place(10, start, 0);
    put_place(11, {start.x + step.x, start.y + step.y}, 0);
}

void EntityMaker::line() {
    const Place start = place(), step = place(extent_ / 100);
    begin("LINE");
    out_.put(100, "AcDbLine");
    put_place(10, start, 0);
    put_place(11, {start.x + step.x, start.y + step.y}, 0);
}

void EntityMaker::circle() {
    begin("CIRCLE");
    out_.put(100, "AcDbCircle");
    put_place(10, place(), 0);
    out_.put(40, random_.between(1, extent_ / 100));
}

void EntityMaker::arc() {
    begin("ARC");
    out_.put(100, "AcDbCircle");
    put_place(10, place(), 0);
    out_.put(40, random_.between(1, extent_ / 100));
    const double start = random_.between(0, 360);
    out_.put(100, "AcDbArc", 50, start, 51, std::fmod(start + random_.between(10, 300), 360));
}

void EntityMaker::point() {
    begin("POINT");
    out_.put(100, "AcDbPoint");
    const Place position = place();
    put_place(10, position, random_.unit());
}

void EntityMaker::light_polyline() {
    const int count = random_.integer(3, 25);
    begin("LWPOLYLINE");
    out_.put(100, "AcDbPolyline", 90, count, 70, random_.integer(0, 2), 43, 0.0);
    Place vertex = place();
    for (int i = 0; i < count; ++i) {
        const Place step = place(extent_ / 100);
        vertex = {vertex.x + step.x, vertex.y + step.y - extent_ / 200};
        put_place(10, vertex);
        if (random_.chance(0.3)) out_.put(42, random_.between(-1, 1));
    }
}

void EntityMaker::text() {
    begin("TEXT");
    out_.put(100, "AcDbText");
    put_place(10, place(), 0);
    out_.put(40, 2.5, 1, words(random_));
    out_.put(50, random_.between(0, 360), 7, "Standard", 100, "AcDbText");
}

// A clamped knot vector, the inner knots one apart.
void EntityMaker::put_knots(int points) {
    const int spans = points - kDegree;
    for (int i = 0; i < points + kDegree + 1; ++i) {
        const int knot = i <= kDegree ? 0 : i < points ? i - kDegree : spans;
        out_.put(40, static_cast<double>(knot));
    }
}

// A run of points to the right, in points_.
void EntityMaker::wavy_points(Place from, int count) {
    points_.clear();
    for (int i = 0; i < count; ++i) {
        const Place step = place(10);
        from = {from.x + step.x + 1, from.y + step.y - 5};
        points_.push_back(from);
    }
}

void EntityMaker::spline() {
    const int count = random_.integer(5, 60);
    const bool rational = random_.chance(0.2), fit_points = random_.chance(0.2);
    wavy_points(place(), count);
    begin("SPLINE");
    out_.put(100, "AcDbSpline", 210, 0.0, 220, 0.0, 230, 1.0, 70, rational ? 12 : 8, 71, kDegree);
    out_.put(72, count + kDegree + 1, 73, count, 74, fit_points ? count : 0, 42, 1e-7, 43, 1e-7);
    if (fit_points) out_.put(44, 1e-10);
    put_knots(count);
    for (int i = 0; rational && i < count; ++i) out_.put(41, random_.between(0.5, 2));
    for (const Place& point : points_) put_place(10, point, 0);
    if (!fit_points) return;
    for (const Place& point : points_) put_place(11, {point.x, point.y + random_.unit()}, 0);
}

// Counter-clockwise: a line, half a circle, a spline back and half an ellipse.
void EntityMaker::hatch_loop(bool outermost) {
    const Place corner = place();
    const double width = random_.between(20, 60), height = random_.between(10, 30);
    const Place right = {corner.x + width, corner.y + height / 2}, left = {corner.x, corner.y + height / 2};
    out_.put(92, outermost ? 1 : 16, 93, 4, 72, 1);
    put_place(10, corner);
    put_place(11, {corner.x + width, corner.y});
    out_.put(72, 2);
    put_place(10, right);
    out_.put(40, height / 2, 50, -90.0, 51, 90.0, 73, 1);

    const int count = random_.integer(4, 20);
    out_.put(72, 4, 94, kDegree, 73, 0, 74, 0, 95, count + kDegree + 1, 96, count);
    put_knots(count);
    for (int i = 0; i < count; ++i) {
        const bool end = i == 0 || i == count - 1;
        const double wave = end ? 0 : random_.unit();
        put_place(10, {corner.x + width - width * i / (count - 1), corner.y + height + wave});
    }
    out_.put(72, 3);
    put_place(10, left);
    put_place(11, {0, height / 2});
    out_.put(40, 0.6, 50, 0.0, 51, 180.0, 73, 1, 97, 0);
}

void EntityMaker::hatch() {
    const bool solid = random_.chance(0.5);
    const int loops = random_.integer(1, 4);
    begin("HATCH");
    out_.put(100, "AcDbHatch", 10, 0.0, 20, 0.0, 30, 0.0, 210, 0.0, 220, 0.0, 230, 1.0);
    out_.put(2, solid ? "SOLID" : "LINES45", 70, solid ? 1 : 0, 71, 0, 91, loops);
    for (int i = 0; i < loops; ++i) hatch_loop(i == 0);
    out_.put(75, 1, 76, 1);
    if (!solid) {
        out_.put(52, 0.0, 41, 1.0, 77, 0, 78, 1);
        out_.put(53, 45.0, 43, 0.0, 44, 0.0, 45, -2.2450640303, 46, 2.2450640303, 79, 0);
    }
    out_.put(98, 0);
}

void EntityMaker::polyface_vertices(Handle owner, Place corner, int rows, int columns) {
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < columns; ++j) {
            begin("VERTEX", owner);
            out_.put(100, "AcDbVertex", 100, "AcDbPolyFaceMeshVertex");
            const Place moved = {corner.x + i + random_.unit() / 3, corner.y + j + random_.unit() / 3};
            put_place(10, moved, random_.between(-1, 1));
            out_.put(70, 192);
        }
    }
}

void EntityMaker::polyface_faces(Handle owner, int rows, int columns) {
    for (int i = 0; i + 1 < rows; ++i) {
        for (int j = 1; j < columns; ++j) {
            const int corner = i * columns + j;  // vertices count from 1
            begin("VERTEX", owner);
            out_.put(100, "AcDbFaceRecord", 10, 0.0, 20, 0.0, 30, 0.0, 70, 128);
            out_.put(71, corner, 72, corner + columns, 73, corner + columns + 1, 74, corner + 1);
        }
    }
}

// A bumpy grid of quadrilaterals.
void EntityMaker::polyface_mesh() {
    const int rows = random_.integer(3, 17), columns = random_.integer(3, 17);
    const Handle mesh = begin("POLYLINE");
    out_.put(100, "AcDbPolyFaceMesh", 66, 1, 10, 0.0, 20, 0.0, 30, 0.0, 70, 64);
    out_.put(71, rows * columns, 72, (rows - 1) * (columns - 1));
    polyface_vertices(mesh, place(), rows, columns);
    polyface_faces(mesh, rows, columns);
    begin("SEQEND", mesh);
}

void EntityMaker::face() {
    static constexpr Place kSquare[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const Place origin = place();
    begin("3DFACE");
    out_.put(100, "AcDbFace");
    int code = 10;
    for (const Place& corner : kSquare) {
        const double dx = random_.unit(), dy = random_.unit();
        put_place(code++, {origin.x + corner.x + dx, origin.y + corner.y + dy}, random_.unit());
    }
    out_.put(70, 0);
}

void EntityMaker::attribute_definition() {
    begin("ATTDEF");
    out_.put(100, "AcDbText", 10, 0.0, 20, 0.0, 30, 0.0, 40, 2.5, 1, "0");
    out_.put(100, "AcDbAttributeDefinition", 3, "Number", 2, "NUMBER", 70, 0);
}

void EntityMaker::put_array() {
    const double column_step = random_.between(10, 20), row_step = random_.between(10, 20);
    out_.put(70, 3, 71, 2, 44, column_step, 45, row_step);
}

void EntityMaker::plain_insert(std::string_view block) {
    begin("INSERT");
    out_.put(100, "AcDbBlockReference", 2, block);
    put_place(10, place(), 0);
    out_.put(50, random_.between(0, 360));
}

void EntityMaker::insert(std::string_view block, bool with_attribute) {
    const Place position = place();
    const Handle handle = begin("INSERT");
    out_.put(100, "AcDbBlockReference");
    if (with_attribute) out_.put(66, 1);
    out_.put(2, block);
    put_place(10, position, 0);
    const double kind = random_.unit(), scale = random_.between(0.5, 2);
    if (kind < 0.2)
        out_.put(41, scale, 42, random_.between(0.5, 2), 43, 1.0);
    else if (kind < 0.5)
        out_.put(41, scale, 42, scale, 43, scale);
    out_.put(50, random_.between(0, 360));
    if (!with_attribute) {
        if (random_.chance(0.02)) put_array();
        return;
    }
    begin("ATTRIB", handle);
    out_.put(100, "AcDbText");
    put_place(10, position, 0);
    out_.put(40, 2.5, 1, "N" + std::to_string(random_.integer(0, 10000)));
    out_.put(100, "AcDbAttribute", 2, "NUMBER", 70, 0);
    begin("SEQEND", handle);
}

}  // namespace bench
