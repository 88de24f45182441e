#include "Shapes.h"

#include "viewer/colour_map.h"
#include "viewer/render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Viewer;

/// A flat square over the whole picture, at a height and with a value.
void addSquare(Model& model, float height, float value) {
  const auto first = static_cast<std::uint32_t>(model.points.size());
  for (const auto& [x, y] : {std::pair(-0.5F, -0.5F), {0.5F, -0.5F}, {0.5F, 0.5F}, {-0.5F, 0.5F}}) {
    model.points.push_back({x, y, height});
    model.normals.push_back({0, 0, 1});
    model.values.push_back(value);
  }
  model.triangles.push_back({first, first + 1, first + 2});
  model.triangles.push_back({first, first + 2, first + 3});
}

std::shared_ptr<Model> modelOf(const Surface::Mesh& mesh) {
  auto model = std::make_shared<Model>();
  for (const Surface::Point& point : mesh.points) {
    model->points.push_back({static_cast<float>(point[0]) / 2, static_cast<float>(point[1]) / 2,
                             static_cast<float>(point[2]) / 2});
    model->normals.push_back({0, 0, 1});
    model->values.push_back(1);
  }
  model->triangles = mesh.triangles;
  return model;
}

Order orderOf(std::shared_ptr<Model> model, Standpoint from) {
  Order order;
  order.size = {200, 160};
  order.middle = {100, 80};
  order.camera.look(from);
  order.camera.fit(*model, order.size, QSizeF(order.size));
  order.model = std::move(model);
  return order;
}

float middleOf(const Picture& picture) {
  const auto width = static_cast<std::size_t>(picture.image.width());
  const auto height = static_cast<std::size_t>(picture.image.height());
  return picture.values[height / 2 * width + width / 2];
}

TEST(Picture, TheNearestSurfaceWinsInEveryOrder) {
  struct Row {
    float firstHeight;
    float secondHeight;
    Standpoint from;
    float shown;
    const char* fault;
  };
  const Row rows[] = {
      {0.3F, -0.3F, Standpoint::Front, 1, "a far surface drawn later hides a near one"},
      {-0.3F, 0.3F, Standpoint::Front, 2, "a near surface drawn later is lost"},
      {0.3F, -0.3F, Standpoint::Back, 2, "depth does not follow the eye"},
  };
  Renderer renderer;
  for (const Row& row : rows) {
    for (const bool thorough : {false, true}) {
      const auto model = std::make_shared<Model>();
      addSquare(*model, row.firstHeight, 1);
      addSquare(*model, row.secondHeight, 2);
      Order order = orderOf(model, row.from);
      order.thorough = thorough;
      EXPECT_FLOAT_EQ(middleOf(renderer.draw(order)), row.shown) << row.fault;
    }
  }
}

TEST(Picture, SurfacesHaveNoHoles) {
  Renderer renderer;
  for (const Standpoint from : {Standpoint::Front, Standpoint::Oblique, Standpoint::Back}) {
    for (const int coarseness : {1, 2, 3}) {
      Order order = orderOf(modelOf(KyrTest::curvedSquare(0, 57)), from);
      order.thorough = false;
      order.coarseness = coarseness;
      const Picture picture = renderer.draw(order);
      const auto width = static_cast<std::ptrdiff_t>(picture.image.width());
      const auto hit = [](float value) { return !std::isnan(value); };
      std::ptrdiff_t lines = 0;
      for (auto line = picture.values.begin(); line != picture.values.end(); line += width) {
        const auto first = std::find_if(line, line + width, hit);
        const auto behind = std::find_if_not(first, line + width, hit);
        EXPECT_TRUE(std::none_of(behind, line + width, hit)) << "a crack between triangles";
        lines += first != line + width ? 1 : 0;
      }
      EXPECT_GT(lines, picture.image.height() * 8 / 10) << "fit leaves room unused";
    }
  }
}

TEST(Picture, EveryStandpointAndDistanceCanBeDrawn) {
  Renderer renderer;
  Order order = orderOf(modelOf(KyrTest::curvedSquare(1)), Standpoint::Oblique);
  for (const double factor : {1e9, 1e-9}) {
    order.camera.zoom(factor);
    for (int turn = 0; turn < 40; ++turn) {
      order.camera.turn(37, 11 * (turn % 5 - 2));
      order.size = {1 + turn * 7 % 50, 1 + turn * 11 % 40};
      const Picture picture = renderer.draw(order);
      EXPECT_EQ(picture.image.size(), order.size);
    }
  }
}

TEST(Camera, TheNearSideFollowsTheHand) {
  struct Row {
    double right;
    double down;
    const char* fault;
  };
  const Row rows[] = {{10, 0, "pushed to the right it turns to the left"},
                      {-10, 0, "pushed to the left it turns to the right"},
                      {0, 10, "pushed down it turns up"},
                      {0, -10, "pushed up it turns down"}};
  for (const Row& row : rows) {
    Camera camera;
    camera.turn(row.right, row.down);
    const Vector seen = camera.projection({100, 100}, {50, 50}).turned({0, 0, 1});
    EXPECT_NEAR(seen.x, row.right * 0.0174, 0.01) << row.fault;
    EXPECT_NEAR(-seen.y, row.down * 0.0174, 0.01) << row.fault;
  }
}

TEST(Colours, BothArmsWeighTheSame) {
  const auto luminance = [](float position) {
    const Light light = lightOf(position);
    return 0.2126F * light[0] + 0.7152F * light[1] + 0.0722F * light[2];
  };
  for (int step = 0; step < 20; ++step) {
    const float position = 0.05F * static_cast<float>(step);
    for (const float side : {-1.0F, 1.0F}) {
      EXPECT_LT(luminance(side * (position + 0.05F)), luminance(side * position))
          << "farther from zero is not darker";
    }
    const float lightness = std::cbrt(luminance(position));
    EXPECT_NEAR(std::cbrt(luminance(-position)), lightness, 0.06F) << "one arm seems to be more";
  }
  EXPECT_EQ(lightOf(-7), lightOf(-1));
  EXPECT_NE(lightOf(std::nanf("")), lightOf(0)) << "no value looks like the value zero";
}

}  // namespace
