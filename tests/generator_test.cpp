#include "generator/generator.h"

#include "support.h"

namespace zentho::idlgen {
namespace {

/// Returns the generated header. Generating must print nothing.
std::string Header(const Schema& schema) {
  const Scratch scratch;
  EXPECT_EQ(Printed([&] { Generator(schema).generate(scratch.path("new/one.idl")); }), "");
  return ReadAll(scratch.path("new/one.h"));
}

const std::string framework = "#pragma once\n\n#include <zentho/serialization/serialization.h>\n";
const std::string noTypes = "\n\n\nnamespace zentho {\n} /* namespace zentho */\n\n";

TEST(Generator, WritesIncludesInAFixedOrder) {
  EXPECT_EQ(Header({}), framework + noTypes);
  Schema matrix;
  matrix.hasMat = true;
  EXPECT_EQ(Header(matrix), framework + "#include <opencv2/core/mat.hpp>\n" + noTypes);
  Schema all;
  all.includes = {"a.b/c"};
  all.hasIntType = all.hasString = all.hasVector = all.hasMat = true;
  EXPECT_EQ(Header(all), framework +
                             "#include <cstdint>\n#include <string>\n#include <vector>\n"
                             "#include <opencv2/core/mat.hpp>\n#include \"a.b/c.h\"\n" +
                             noTypes);
}

TEST(Generator, IgnoresTheDepthOfAMemberThatIsNoVector) {
  Schema schema;
  schema.messages.push_back({"Pose", {{3, "a", 0, "flat"}, {2, ".x..y", 1, "deep"}}});
  EXPECT_EQ(Header(schema), Data("pose.header"));
}

}  // namespace
}  // namespace zentho::idlgen
