#include "sources/slip.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

TEST(Slip, IsOneLetterOfALongName) {
  const auto expect = [](bool isSlip, const std::string& a, const std::string& b) {
    EXPECT_EQ(IsSlip(a, b), isSlip) << a << " " << b;
  };
  for (const char* other : {"statuss.idl", "staus.idl", "stbtus.idl", "sttaus.idl", "status.idk"}) {
    expect(true, other, "status.idl");
  }
  expect(false, "status.idl", "status.idl");
  expect(false, "sattus.ild", "status.idl");
  expect(false, "stxys.idl", "staus.idl");   // As long, but two letters differ.
  expect(false, "stxyus.idl", "stzus.idl");  // One letter more, and one that differs.
  expect(false, "tsatus.idl", "status.idl");
  expect(false, "Status.idl", "status.idl");
  expect(false, "xstatus.idl", "status.idl");
  expect(false, "status2.idl", "status.idl");
  expect(false, "status2.idl", "status3.idl");
  expect(false, "status12.idl", "status21.idl");
  expect(false, "pise.idl", "pose.idl");
  expect(true, "pouint.idl", "point.idl");
}

}  // namespace
}  // namespace zentho::idlgen
