#include "common/geometry.h"
#include "make/made.h"
#include "robot.nav.h"

int main() {
  robot::Pose pose{{1, 2}, ON};
  zentho::BytesBuffer buffer;
  zentho::serialize(pose, buffer);
  zentho::deserialize(buffer, pose);
  return pose.place.y == 2 && pose.state == ON ? 0 : 1;
}
