// Prints what dxflib, an independent reader, finds in a drawing, one line per thing: what it is and, for
// entities, block, layer, colour, line type and figures. The lines of a drawing and of its rewritten form
// must be the same.
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <string>

namespace {

class Lister : public DL_CreationAdapter {
public:
    void addLayer(const DL_LayerData& d) override { entry("layer", d.name); }
    void addLinetype(const DL_LinetypeData& d) override { entry("linetype", d.name); }
    void addLinetypeDash(double length) override { entity("dash", {length}); }
    void addTextStyle(const DL_StyleData& d) override { entry("text style", d.name); }
    void addBlock(const DL_BlockData& d) override {
        entry("block", d.name);
        block_ = d.name;
    }
    void endBlock() override { block_.clear(); }

    void addPoint(const DL_PointData& d) override { entity("point", {d.x, d.y, d.z}); }
    void addLine(const DL_LineData& d) override { entity("line", {d.x1, d.y1, d.z1, d.x2, d.y2, d.z2}); }
    void addXLine(const DL_XLineData& d) override { entity("xline", {d.bx, d.by, d.bz, d.dx, d.dy, d.dz}); }
    void addRay(const DL_RayData& d) override { entity("ray", {d.bx, d.by, d.bz, d.dx, d.dy, d.dz}); }
    void addArc(const DL_ArcData& d) override {
        entity("arc", {d.cx, d.cy, d.cz, d.radius, d.angle1, d.angle2});
    }
    void addCircle(const DL_CircleData& d) override { entity("circle", {d.cx, d.cy, d.cz, d.radius}); }
    void addEllipse(const DL_EllipseData& d) override {
        entity("ellipse", {d.cx, d.cy, d.cz, d.mx, d.my, d.mz, d.ratio, d.angle1, d.angle2});
    }
    void addPolyline(const DL_PolylineData& d) override {
        entity("polyline", {double(d.number), double(d.m), double(d.n), d.elevation, double(d.flags)});
    }
    void addVertex(const DL_VertexData& d) override { entity("vertex", {d.x, d.y, d.z, d.bulge}); }
    void addSpline(const DL_SplineData& d) override {
        entity("spline",
               {double(d.degree), double(d.nKnots), double(d.nControl), double(d.nFit), double(d.flags)});
    }
    void addControlPoint(const DL_ControlPointData& d) override {
        entity("control point", {d.x, d.y, d.z, d.w});
    }
    void addFitPoint(const DL_FitPointData& d) override { entity("fit point", {d.x, d.y, d.z}); }
    void addKnot(const DL_KnotData& d) override { entity("knot", {d.k}); }
    void addInsert(const DL_InsertData& d) override {
        entity("insert of " + d.name, {d.ipx, d.ipy, d.ipz, d.sx, d.sy, d.sz, d.angle, double(d.cols),
                                       double(d.rows), d.colSp, d.rowSp});
    }
    void addMText(
        const DL_MTextData& d) override {  // no angle: told twice, by 11 and 50, of which dxflib takes one
        entity("mtext " + d.text, {d.ipx, d.ipy, d.ipz, d.height, d.width, double(d.attachmentPoint)});
    }
    void addText(const DL_TextData& d) override { text("text ", d); }
    void addAttribute(const DL_AttributeData& d) override { text("attribute " + d.tag + " ", d); }
    void addTrace(const DL_TraceData& d) override { corners("trace", d); }
    void add3dFace(const DL_3dFaceData& d) override { corners("3dface", d); }
    void addSolid(const DL_SolidData& d) override { corners("solid", d); }

    void addDimAlign(const DL_DimensionData& d, const DL_DimAlignedData& e) override {
        dimension("aligned", d, {e.epx1, e.epy1, e.epz1, e.epx2, e.epy2, e.epz2});
    }
    void addDimLinear(const DL_DimensionData& d, const DL_DimLinearData& e) override {
        dimension("linear", d, {e.dpx1, e.dpy1, e.dpz1, e.dpx2, e.dpy2, e.dpz2, e.angle, e.oblique});
    }
    void addDimRadial(const DL_DimensionData& d, const DL_DimRadialData& e) override {
        dimension("radial", d, {e.dpx, e.dpy, e.dpz, e.leader});
    }
    void addDimDiametric(const DL_DimensionData& d, const DL_DimDiametricData& e) override {
        dimension("diametric", d, {e.dpx, e.dpy, e.dpz, e.leader});
    }
    void addDimAngular(const DL_DimensionData& d, const DL_DimAngular2LData& e) override {
        dimension("angular", d, {e.dpx1, e.dpy1, e.dpx2, e.dpy2, e.dpx3, e.dpy3, e.dpx4, e.dpy4});
    }
    void addDimAngular3P(const DL_DimensionData& d, const DL_DimAngular3PData& e) override {
        dimension("three-point", d, {e.dpx1, e.dpy1, e.dpx2, e.dpy2, e.dpx3, e.dpy3});
    }
    void addDimOrdinate(const DL_DimensionData& d, const DL_DimOrdinateData& e) override {
        dimension("ordinate", d, {e.dpx1, e.dpy1, e.dpz1, e.dpx2, e.dpy2, e.dpz2, double(e.xtype)});
    }
    void addLeader(const DL_LeaderData& d) override { entity("leader", {double(d.number)}); }
    void addLeaderVertex(const DL_LeaderVertexData& d) override { entity("leader vertex", {d.x, d.y, d.z}); }
    void addHatch(const DL_HatchData& d) override {
        entity("hatch " + d.pattern, {double(d.numLoops), double(d.solid), d.scale, d.angle});
    }
    void addHatchLoop(const DL_HatchLoopData& d) override { entity("hatch loop", {double(d.numEdges)}); }
    void addHatchEdge(const DL_HatchEdgeData& d) override {  // sets no figures but those of the edge's type
        if (d.type == 1) return entity("hatch line", {d.x1, d.y1, d.x2, d.y2});
        if (d.type == 2) return entity("hatch arc", {d.cx, d.cy, d.radius, d.angle1, d.angle2});
        entity("hatch edge", {double(d.type), double(d.vertices.size()), double(d.controlPoints.size())});
    }
    void addImage(const DL_ImageData& d) override {
        entity("image", {d.ipx, d.ipy, d.ipz, d.ux, d.uy, d.uz, d.vx, d.vy, d.vz});
    }

private:
    static void entry(const char* kind, const std::string& name) {
        std::printf("%s '%s'\n", kind, name.c_str());
    }

    void entity(const std::string& kind, std::initializer_list<double> figures) const {
        std::printf("%s on '%s' in '%s', %d, %s:", kind.c_str(), attributes.getLayer().c_str(),
                    block_.c_str(), attributes.getColor(), attributes.getLinetype().c_str());
        // Reals are written with twenty decimals.
        for (const double figure : figures) std::printf(" %.12g", std::fabs(figure) < 1e-8 ? 0 : figure);
        std::printf("\n");
    }
    void text(const std::string& kind, const DL_TextData& d) const {
        entity(kind + d.text, {d.ipx, d.ipy, d.ipz, d.apx, d.apy, d.apz, d.height, d.xScaleFactor,
                               double(d.hJustification), double(d.vJustification), d.angle});
    }
    void corners(const char* kind, const DL_TraceData& d) const {
        for (int i = 0; i < 4; ++i) entity(kind, {d.x[i], d.y[i], d.z[i], d.thickness});
    }
    void dimension(const char* kind, const DL_DimensionData& d, std::initializer_list<double> figures) const {
        entity(kind + (" dimension " + d.text), figures);
        entity("its base", {d.dpx, d.dpy, d.dpz, d.mpx, d.mpy, d.mpz, double(d.type), d.angle});
    }

    std::string block_;
};

}  // namespace

int main(int count, char** words) {
    Lister lister;
    static DL_Dxf reader;  // static: its constructor leaves members without a value, which then are zero
    return count == 2 && reader.in(words[1], &lister) ? 0 : 1;
}
