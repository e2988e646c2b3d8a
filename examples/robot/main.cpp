#include <cstdint>
#include <iostream>

#include "nav/navigation.h"
#include "report.h"

// Sends a request and a response through buffers, as a client and a service would.

namespace {

robot::nav::Drive::Request MakeRequest() {
  robot::nav::Drive::Request request;
  request.route.name = "to the dock";
  request.route.waypoints = {{{0.0, 0.0}, 0.0}, {{2.5, 1.0}, 0.5}, {{4.0, 4.0}, 1.57}};
  request.route.costs = {{1, 2, 3}, {}, {-1}};
  request.speed = 0.75F;
  return request;
}

robot::nav::Drive::Response Answer(const robot::nav::Drive::Request& request) {
  robot::nav::Drive::Response response;
  response.reached = static_cast<std::int8_t>(request.route.waypoints.size());
  response.reports.push_back({robot::status::WARNING, "battery low", 1700000000});
  return response;
}

}  // namespace

int main() {
  zentho::BytesBuffer toService;
  zentho::serialize(MakeRequest(), toService);
  std::cout << "request:  " << toService.unread() << " bytes\n";

  robot::nav::Drive::Request request;
  zentho::deserialize(toService, request);
  std::cout << "service:  drive \"" << request.route.name << "\" over "
            << request.route.waypoints.size() << " waypoints at " << request.speed << " m/s\n";

  zentho::BytesBuffer toClient;
  zentho::serialize(Answer(request), toClient);
  std::cout << "response: " << toClient.unread() << " bytes\n";

  robot::nav::Drive::Response response;
  zentho::deserialize(toClient, response);
  std::cout << "client:   reached " << int{response.reached} << " waypoints, "
            << Describe(response.reports.front()) << '\n';
}
