#include "robot/route.h"
#include "ui_form.h"

int main() {
  robot::Route route;
  route.points.push_back({1, VERSION});
  route.length = 1;
  return static_cast<int>(route.points.size()) - route.length;
}
