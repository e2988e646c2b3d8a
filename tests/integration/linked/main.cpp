#include "robot/route.h"
#include "ui_form.h"

int main() {
  robot::Route route;
  route.points.push_back({1, VERSION});
  return static_cast<int>(route.points.size()) - 1;
}
