#include "veltrane/kernel/topo/dump.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/geom/circle.hpp"

#include <gtest/gtest.h>

namespace veltrane::kernel {
namespace {

TEST(Dump, ShowsSharingPlacementAndOrientation) {
    const Shape edge = make_edge({0, 0, 0}, {2, 0, 0});
    const Shape circle = make_edge(make<Circle>(Frame(), 5));
    const Transform turn = Transform::mirror_in_axis({0, 0, 0}, {0, 0, 1});
    const Shape shape = make_compound({edge, moved(edge, Transform::translation({0, 3, 0})).reversed(),
                                       circle, moved(make_compound({}), turn)});
    EXPECT_EQ(dump(shape),
              "#1 compound 4 members\n"
              "  #2 edge line through (0 0 0) along (1 0 0) from 0 to 2\n"
              "    #3 vertex (0 0 0)\n"
              "    #4 vertex reversed (2 0 0)\n"
              "  #2 edge reversed moved (0 3 0) as above\n"
              "  #5 edge circle centre (0 0 0) axis (0 0 1) radius 5 from 0 to 6.283185307179586 closed\n"
              "    #6 vertex (5 0 0)\n"
              "    #6 vertex reversed as above\n"
              "  #7 compound turned x (-1 0 0) z (0 0 1) 0 members\n");
}

TEST(Dump, ShowsParameterCurvesOfAFace) {
    EXPECT_EQ(dump(prism(make_edge({0, 0, 0}, {2, 0, 0}), {0, 0, 1})),
              "#1 face plane through (0 0 0) normal (0 -1 0) 1 loop\n"
              "  #2 wire 4 edges\n"
              "    #3 edge line through (0 0 0) along (1 0 0) from 0 to 2 in parameters line through (0 0 0) "
              "along (1 0 0)\n"
              "      #4 vertex (0 0 0)\n"
              "      #5 vertex reversed (2 0 0)\n"
              "    #6 edge line through (2 0 0) along (0 0 1) from 0 to 1 in parameters line through (2 0 0) "
              "along (0 1 0)\n"
              "      #5 vertex as above\n"
              "      #7 vertex reversed (2 0 1)\n"
              "    #8 edge reversed line through (0 0 1) along (1 0 0) from 0 to 2 in parameters line "
              "through (0 1 0) along (1 0 0)\n"
              "      #9 vertex (0 0 1)\n"
              "      #7 vertex reversed as above\n"
              "    #10 edge reversed line through (0 0 0) along (0 0 1) from 0 to 1 in parameters line "
              "through (0 0 0) along (0 1 0)\n"
              "      #4 vertex as above\n"
              "      #9 vertex reversed as above\n");
}

TEST(Dump, DeepIndentationBecomesANumber) {
    Shape shape = make_vertex({1, 2, 3});
    for (int depth = 0; depth < 40; ++depth) shape = make_compound({shape});
    const std::string text = dump(shape);
    EXPECT_NE(text.find("\n" + std::string(64, ' ') + "#33 compound 1 member\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n" + std::string(64, ' ') + "(40) #41 vertex (1 2 3)\n"), std::string::npos)
        << text;
    EXPECT_EQ(dump(Shape()), "null shape\n");
}

}  // namespace
}  // namespace veltrane::kernel
