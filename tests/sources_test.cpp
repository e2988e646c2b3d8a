#include "sources/sources.h"

#include <sys/stat.h>

#include <map>

#include "memory_tree.h"
#include "messages/examination.h"
#include "messages/report.h"
#include "support.h"

namespace zentho::idlgen {
namespace {

using Texts = std::map<std::string, std::string>;

/// Counts how often each path is read and each directory is listed. Cannot read `broken.idl`.
class CountingTree final : public SourceTree {
 public:
  explicit CountingTree(Texts texts) : files(std::move(texts)) {}

  Entry look(const std::string& path) override { return files.look(path); }
  Entry read(const std::string& path, std::string& text) override {
    ++reads[path];
    const std::error_code error = std::make_error_code(std::errc::io_error);
    if (path == "broken.idl") return {Entry::Kind::Unreadable, files.look(path).id, error};
    return files.read(path, text);
  }
  Listing list(const std::string& directory) override {
    ++lists[directory];
    return files.list(directory);
  }

  std::map<std::string, int> reads;
  std::map<std::string, int> lists;

 private:
  MemoryTree files;
};

std::vector<std::string> Split(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// Returns what the includes of a file lead to, in their order.
std::vector<Include> IncludesOf(const SourceFile& file) {
  std::vector<Include> includes;
  for (std::size_t i = 0; i < file.words.size(); ++i) {
    const bool isPath = file.words.role(i) == Role::IncludePath;
    if (isPath) includes.push_back(file.includes.at(file.words.text(i)));
  }
  return includes;
}

/// Returns what the first include of a file leads to: the path of the file, "not told", or "not
/// found" and what is said about that.
std::string FirstInclude(const Sources& sources, std::size_t file = 0) {
  const Include include = IncludesOf(sources.files().at(file)).at(0);
  if (include.file != nullptr) return include.file->path;
  return include.missing.empty() ? "not told" : "not found: " + include.missing.front().advice;
}

struct Search {
  const char* name;
  std::string others;       ///< The files besides that which includes another one.
  std::string directories;  ///< Of the options -I.
  std::string file;         ///< The file that includes another one.
  std::string include;
  std::string found;
};

using Finds = testing::TestWithParam<Search>;

TEST_P(Finds, WhatTheIncludeMeans) {
  const Search& search = GetParam();
  Texts texts = {{search.file, "include " + search.include}};
  for (const std::string& other : Split(search.others)) texts[other] = "";
  MemoryTree tree(texts);
  Sources sources(tree, Split(search.directories));
  sources.load({search.file});
  EXPECT_EQ(FirstInclude(sources), search.found);
}

const std::string longName(5000, 'n');

const std::vector<Search> searches = {
    {"BesideFirst", "d/x.idl e/x.idl", "e", "d/a.idl", R"("x.idl")", "d/x.idl"},
    {"BracketsLikeQuotes", "d/x.idl", "", "d/a.idl", "<x.idl>", "d/x.idl"},
    // The first two directories are both beside d, so their order does not count.
    {"DirectoriesInOrder", "e/g/x.idl f/g/x.idl", "d f e", "d/a.idl", R"("g/x.idl")", "not told"},
    {"FromElsewhere", "e/g/x.idl f/g/x.idl", "n f/ e", "d/a.idl", R"("g/x.idl")", "f/g/x.idl"},
    {"PathsAboveTheFile", "e/x.idl", "", "d/a.idl", R"("../e/./x.idl")", "e/x.idl"},
    {"AbsolutePaths", "/e/x.idl", "d", "d/a.idl", R"("/e/x.idl")", "/e/x.idl"},
    {"ItsOwnFile", "", "", "a.idl", R"("./a.idl")", "a.idl"},
    {"PassesOverDirectories", "d/x.idl/y e/x.idl", "e", "d/a.idl", R"("x.idl")", "e/x.idl"},
    // The headers of d and e may share a directory, where that of e/n/x.idl comes first.
    {"OneInPlaceOfIt", "e/n/x.idl d/x.idl", "d e", "d/n/a.idl", R"("x.idl")", "not told"},
    {"AnotherOneAbove", "e/x.idl", "d e", "d/n/a.idl", R"("../x.idl")", "not told"},
    {"TheSameOne", "e/x.idl", "d ./d e", "d/a.idl", R"("x.idl")", "e/x.idl"},
    {"AnyPathOfTheBase", "e/n/x.idl d/x.idl", "./f/../d e", "d/n/a.idl", R"("x.idl")", "not told"},
    {"NotInNoDirectory", "e/x.idl", "", "d/a.idl", R"("x.idl")",
     "not found: what it declares is not checked"},
    {"NotInTheRoot", "/x.idl", "", "/d/e/a.idl", R"("x.idl")",
     R"(not found: it is in "/", which is not searched)"},
    {"WithoutAQuote", "x.idl", "", "a.idl", R"("x.idl)", "x.idl"},
    {"InSingleQuotes", "x.idl", "", "a.idl", "'x.idl'", "x.idl"},
    {"NotALongPath", longName, "", "a.idl", '"' + longName + '"', "not told"},
    {"NotTheEmptyPath", "", "", "a.idl", R"("")", "not told"},
    {"NotAHeader", "x.h", "", "a.idl", R"("x.h")", "not told"},
};
INSTANTIATE_TEST_SUITE_P(Include, Finds, testing::ValuesIn(searches), RowName<Search>);

TEST(Sources, ReadsEachFileOnceAndTheNamedFilesFirst) {
  CountingTree tree({{"a.idl", "include \"c.idl\" include \"b.idl\" include \"./c.idl\""},
                     {"b.idl", "include \"a.idl\" include \"d/../c.idl\""},
                     {"c.idl", "message"},
                     {"d/e.idl", "include \"../broken.idl\""},
                     {"broken.idl", ""}});
  Sources sources(tree, {"."});
  sources.load({"a.idl", "none.idl", "d", "broken.idl", "b.idl", "./a.idl", "d/e.idl"});

  std::vector<std::string> named;
  for (const Sources::Input& file : sources.named()) named.push_back(file.path + ":" + file.reason);
  EXPECT_EQ(named, (std::vector<std::string>{
                       "a.idl:", "none.idl:No such file or directory", "d:is not a regular file",
                       "broken.idl:Input/output error", "b.idl:", "d/e.idl:"}));
  ASSERT_EQ(sources.files().size(), 4U);
  EXPECT_EQ(sources.files()[1].path, "b.idl");
  EXPECT_EQ(sources.files()[3].path, "c.idl");
  EXPECT_TRUE(sources.files()[3].error.has_value());
  EXPECT_EQ(FirstInclude(sources, 2), "not found: Input/output error");
  std::vector<std::string> includes;
  for (const Include& include : IncludesOf(sources.files()[0])) {
    includes.push_back(include.file->path);
  }
  EXPECT_EQ(includes, (std::vector<std::string>{"c.idl", "b.idl", "c.idl"}));
  EXPECT_EQ(tree.reads,
            (std::map<std::string, int>{
                {"a.idl", 1}, {"b.idl", 1}, {"broken.idl", 1}, {"c.idl", 1}, {"d/e.idl", 1}}));
  EXPECT_EQ(tree.lists, (std::map<std::string, int>{}));
}

TEST(Sources, ListsADirectoryOnce) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "include \"common/status" + std::to_string(i) + ".idl\"\n";
  CountingTree tree({{"d/a.idl", text}, {"e/common/status.idl", ""}});
  Sources sources(tree, {"d", "e", "f"});
  sources.load({"d/a.idl"});
  EXPECT_EQ(FirstInclude(sources), "not found: what it declares is not checked");
  EXPECT_EQ(tree.lists, (std::map<std::string, int>{{"d/common/", 1}, {"e/common/", 1}}));
}

TEST(Sources, FollowALongRing) {
  constexpr int length = 20000;
  Texts texts;
  for (int i = 0; i < length; ++i) {
    texts[Numbered("f%.idl", i)] = Numbered("include \"f%.idl\"", (i + 1) % length);
  }
  MemoryTree tree(std::move(texts));
  Sources sources(tree, {});
  sources.load({"f0.idl"});
  EXPECT_EQ(sources.files().size(), static_cast<std::size_t>(length));
  EXPECT_EQ(FirstInclude(sources, length - 1), "f0.idl");
  Examination examination(sources);
  const std::string told =
      reportOn(examination, sources.files().front(), Warnings::Report).messages;
  EXPECT_NE(told.find("\"f1.idl\" includes this file, too"), std::string::npos) << told;
}

struct PathRow {
  const char* name;
  std::string directories;
  std::string from;
  std::string to;
  std::string path;
};
using IncludePath = testing::TestWithParam<PathRow>;

TEST_P(IncludePath, IsTheShortestOneThatLeadsToTheFile) {
  const PathRow& row = GetParam();
  MemoryTree tree({{"d/nav/a.idl", ""},
                   {"d/nav/geo/pose.idl", ""},
                   {"d/geo/pose.idl", ""},
                   {"d/geo/none", ""},
                   {"d/geo/a b.idl", ""},
                   {"d/geo/point.idl", ""}});
  Sources sources(tree, Split(row.directories));
  sources.load({row.from, row.to});
  EXPECT_EQ(sources.includePath(sources.files()[0], sources.files()[1]), row.path);
}

const std::vector<PathRow> pathRows = {
    {"Beside", "d", "d/geo/pose.idl", "d/geo/point.idl", "point.idl"},
    {"Below", "", "d/nav/a.idl", "d/nav/geo/pose.idl", "geo/pose.idl"},
    {"FromADirectory", "d", "d/nav/a.idl", "d/geo/point.idl", "geo/point.idl"},
    {"FromTheInnerDirectory", "d d/geo", "d/nav/a.idl", "d/geo/point.idl", "point.idl"},
    {"NotToAHiddenFile", "d", "d/nav/a.idl", "d/geo/pose.idl", "../geo/pose.idl"},
    {"WithoutDirectories", "", "d/nav/a.idl", "d/geo/point.idl", "../geo/point.idl"},
    {"NotWithSpaces", "d", "d/nav/a.idl", "d/geo/a b.idl", ""},
    {"NotWithoutExtension", "d", "d/nav/a.idl", "d/geo/none", ""},
};
INSTANTIATE_TEST_SUITE_P(Sources, IncludePath, testing::ValuesIn(pathRows), RowName<PathRow>);

TEST(DiskTree, TellsFilesFromWhatIsNoneAndKnowsThemByAnyPath) {
  const Scratch scratch;
  const std::string path = scratch.write("d/a.idl", "text");
  std::filesystem::create_hard_link(path, scratch.path("hard"));
  std::filesystem::create_symlink("d/a.idl", scratch.path("soft"));
  ASSERT_EQ(mkfifo(scratch.path("fifo").c_str(), 0666), 0);
  DiskTree tree;
  EXPECT_EQ(tree.look(path).kind, Entry::Kind::File);
  EXPECT_EQ(tree.look(scratch.path("hard")).id, tree.look(path).id);
  EXPECT_EQ(tree.look(scratch.path("soft")).id, tree.look(path).id);
  EXPECT_EQ(tree.look(scratch.path("d")).kind, Entry::Kind::Directory);
  EXPECT_EQ(tree.look(scratch.path("fifo")).kind, Entry::Kind::Other);
  EXPECT_EQ(tree.look("/dev/null").kind, Entry::Kind::Other);
  EXPECT_EQ(tree.look(path + "/b").kind, Entry::Kind::Missing);
  EXPECT_EQ(tree.look(path + std::string("\0b", 2)).kind, Entry::Kind::Missing);
  EXPECT_EQ(tree.look(scratch.path(std::string(300, 'n'))).kind, Entry::Kind::Unreadable);

  std::string text;
  EXPECT_EQ(tree.read(scratch.path("fifo"), text).kind, Entry::Kind::Other);
  EXPECT_EQ(tree.read(path, text).id, tree.look(path).id);
  EXPECT_EQ(text, "text");
  const Listing listing = tree.list(scratch.path("."));
  EXPECT_FALSE(listing.error);
  EXPECT_EQ(listing.names, (std::vector<std::string>{"d", "fifo", "hard", "soft"}));
  EXPECT_TRUE(tree.list(scratch.path("none")).error);
}

}  // namespace
}  // namespace zentho::idlgen
