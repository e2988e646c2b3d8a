#include "generator/generator.h"

#include <sys/resource.h>
#include <zentho/util/file_path.h>

#include <csignal>

#include "io/line_writer.h"
#include "support.h"

namespace zentho {
namespace {

/// The header of a model. Generating must print nothing.
std::string Header(const Schema& schema) {
  const Scratch scratch;
  EXPECT_EQ(Printed([&] { Generator(schema).generate(scratch.path("new/one.idl")); }), "");
  return ReadAll(scratch.path("new/one.h"));
}

const std::string framework = "#pragma once\n\n#include <zentho/serialization/serialization.h>\n";
const std::string noTypes = "\n\n\nnamespace zentho {\n} /* namespace zentho */\n\n";

TEST(Generator, IncludesWhatEachFlagAsksFor) {
  EXPECT_EQ(Header({}), framework + noTypes);

  const std::vector<std::pair<bool Schema::*, std::string>> flags = {
      {&Schema::hasIntType, "#include <cstdint>\n"},
      {&Schema::hasString, "#include <string>\n"},
      {&Schema::hasVector, "#include <vector>\n"},
      {&Schema::hasMat, "#include <opencv2/core/mat.hpp>\n"}};
  Schema all;
  all.includes = {"a.b/c"};
  std::string everyLine;
  for (const auto& [flag, line] : flags) {
    Schema one;
    one.*flag = all.*flag = true;
    EXPECT_EQ(Header(one), framework + line + noTypes);
    everyLine += line;
  }
  EXPECT_EQ(Header(all), framework + everyLine + "#include \"a.b/c.h\"\n" + noTypes);
}

TEST(Generator, NamesTypesGloballyWithoutANamespace) {
  Schema schema;
  schema.messages.push_back({"Pose", {{3, "a", 0, "flat"}, {2, ".x..y", 1, "deep"}}});
  EXPECT_EQ(Header(schema), Data("pose.h.expected"));
}

TEST(Generator, PutsTheHeaderWhereTheLastDotSays) {
  const Scratch scratch;
  scratch.write("old.h", std::string(5000, 'x'));
  for (const auto& [idl, header] :
       std::vector<std::pair<std::string, std::string>>{{"robot.msgs.idl", "robot.msgs.h"},
                                                        {"dir.old/robot", "dir.h"},
                                                        {"one/two/three.x", "one/two/three.h"},
                                                        {"a/../b.idl", "b.h"},
                                                        {".idl", ".h"},
                                                        {"old.idl", "old.h"}}) {
    Generator({}).generate(scratch.path(idl));
    EXPECT_EQ(ReadAll(scratch.path(header)), framework + noTypes) << idl;
  }
}

TEST(CreateFile, MakesWhatIsMissingAndLeavesWhatIsThere) {
  const Scratch scratch;
  const std::string made = scratch.path("a/b/new.h");
  util::FilePath::createFile(made.c_str());
  EXPECT_EQ(ReadAll(made), "");

  const std::string kept = scratch.write("kept.h", "kept");
  const auto before = std::filesystem::last_write_time(kept);
  util::FilePath::createFile(kept.c_str());
  EXPECT_EQ(ReadAll(kept), "kept");
  EXPECT_EQ(std::filesystem::last_write_time(kept), before);

  for (const std::string& refused : {kept + "/x.h", std::string(), std::string(5000, 'n')}) {
    EXPECT_NO_THROW(util::FilePath::createFile(refused.c_str()));
  }
}

TEST(LineWriter, HoldsNothingBack) {
  const Scratch scratch;
  scratch.write("lines", "earlier content");
  LineWriter writer(scratch.path("lines"));
  writer.writeLine({"a", "", "b"});
  writer.writeLine({});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\n\n");
}

TEST(LineWriter, LeavesNoHoleAfterARefusal) {
  const Scratch scratch;
  LineWriter writer(scratch.path("lines"));
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  rlimit limited = unlimited;
  limited.rlim_cur = 4;

  std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limited);
  writer.writeLine({"ab"});
  writer.writeLine({"cd"});
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, SIG_DFL);
  writer.writeLine({"ef"});
  EXPECT_EQ(ReadAll(scratch.path("lines")), "ab\nc");
}

}  // namespace
}  // namespace zentho
