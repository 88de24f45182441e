#include "Shapes.h"

#include "viewer/render.h"

#include "support/Support.h"

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
  Renderer renderer;
  for (const float nearer : {1.0F, 2.0F}) {
    const auto model = std::make_shared<Model>();
    addSquare(*model, 1.5F - nearer, 1);
    addSquare(*model, nearer - 1.5F, 2);
    EXPECT_EQ(middleOf(renderer.draw(orderOf(model, Standpoint::Front))), nearer);
    EXPECT_EQ(middleOf(renderer.draw(orderOf(model, Standpoint::Back))), 3 - nearer)
        << "depth does not follow the eye";
  }
}

TEST(Picture, SurfacesHaveNoHoles) {
  Renderer renderer;
  const auto hit = [](float value) { return !std::isnan(value); };
  for (const int coarseness : {1, 2, 3}) {
    Order order = orderOf(modelOf(KyrTest::curvedSquare(0, 57)), Standpoint::Oblique);
    order.coarseness = coarseness;
    const Picture picture = renderer.draw(order);
    const std::ptrdiff_t width = picture.image.width();
    int lines = 0;
    for (auto line = picture.values.begin(); line != picture.values.end(); line += width) {
      const auto first = std::find_if(line, line + width, hit);
      const auto behind = std::find_if_not(first, line + width, hit);
      EXPECT_TRUE(std::none_of(behind, line + width, hit)) << "a crack between triangles";
      lines += first != line + width ? 1 : 0;
    }
    EXPECT_GT(lines, picture.image.height() * 8 / 10) << "fit leaves room unused";
  }
}

TEST(Camera, TheNearSideFollowsTheHand) {
  Camera camera;
  camera.turn(10, -5);
  const Vector seen = camera.projection({100, 100}, {50, 50}).turned({0, 0, 1});
  EXPECT_NEAR(seen.x, 0.174, 0.01) << "pushed to the right it turns to the left";
  EXPECT_NEAR(seen.y, 0.087, 0.01) << "pushed up it turns down";
  Camera overturned;
  overturned.turn(0, 120);
  EXPECT_NEAR(overturned.projection({100, 100}, {50, 50}).turned({0, 1, 0}).z, 1, 0.01);
}

}  // namespace
