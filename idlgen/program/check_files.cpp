#include "program/check_files.h"

#include <algorithm>
#include <ctime>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include "io/replace_file.h"
#include "messages/examination.h"
#include "messages/report.h"
#include "program/depfile.h"
#include "program/output_file.h"
#include "sources/source_tree.h"
#include "sources/sources.h"

namespace zentho::idlgen {
namespace {

/// One run of the check.
class Run {
 public:
  explicit Run(const CheckRequest& checkRequest)
      : request(checkRequest), sources(tree, checkRequest.directories) {}

  Outcome check() {
    if (request.stamp.has_value()) clockError = readClock(*request.stamp, begin);
    sources.load(request.files);  // First, so that none of these files is taken for a stamp.
    if (!request.argumentError.empty()) return {false, request.argumentError};
    for (const OutputFile& file : outputs()) {
      if (const std::optional<std::string> reason = Refusal(file)) {
        return {false, ErrorLine(file.path, *reason)};
      }
    }
    std::string errors = nameErrors() + directoryErrors(/*ofMissing=*/false);
    if (!errors.empty()) return {false, std::move(errors)};
    Outcome result{true, {}};
    // As compilers do, passes over directories that do not exist.
    const bool isReported = sources.hasMissing() && request.warnings != Warnings::Ignore;
    if (isReported) result.messages = directoryErrors(/*ofMissing=*/true);
    Examination examination(sources);
    for (const Sources::Input& named : sources.named()) {
      append(examineNamed(examination, named), result);
    }
    if (result.succeeded) append(writeOutputs(), result);
    return result;
  }

  /// Removes a stamp of an earlier run.
  void removeStamp(std::string& messages) const {
    if (request.stamp.has_value() && !Refusal(stamp()).has_value()) {
      removeOutput(*request.stamp, messages);
    }
  }

 private:
  static void append(const Outcome& part, Outcome& result) {
    result.succeeded = result.succeeded && part.succeeded;
    result.messages += part.messages;
  }

  /// Returns a message for each base directory that does not exist, or for those that are none.
  std::string directoryErrors(bool ofMissing) {
    std::string messages;
    for (const std::string& directory : request.directories) {
      const Entry entry = tree.look(directory);
      const bool isMissing = entry.kind == Entry::Kind::Missing;
      if (entry.kind == Entry::Kind::Directory || isMissing != ofMissing) continue;
      const std::error_code error =
          entry.error ? entry.error : std::make_error_code(std::errc::not_a_directory);
      messages += ErrorLine(directory, error.message());
    }
    return messages;
  }

  /// Returns a message for each name that no depfile can have.
  std::string nameErrors() const {
    std::string messages;
    if (!request.depfile.has_value()) return messages;
    std::vector<std::string> written = dependencies();
    written.push_back(*request.stamp);
    for (const std::string& name : written) {
      if (name.find('\n') == std::string::npos) continue;
      messages += ErrorLine(name, "has a line feed, which cannot be in a depfile");
    }
    return messages;
  }

  Outcome examineNamed(Examination& examination, const Sources::Input& named) const {
    if (named.file == nullptr) return {false, ErrorLine(named.path, named.reason)};
    return reportOn(examination, *named.file, request.warnings);
  }

  OutputFile stamp() const {
    return {*request.stamp, [](std::string_view) { return false; }, "is not empty",
            [this](FileId id) { return isRead(id); }, "is a file to read"};
  }

  OutputFile depfile() const {
    OutputFile file = stamp();
    file.path = *request.depfile;
    file.isOlder = [this](std::string_view text) { return IsDepfile(text, *request.stamp); };
    file.otherReason = "is not a depfile of this stamp";
    return file;
  }

  /// Returns the files to write.
  std::vector<OutputFile> outputs() const {
    std::vector<OutputFile> files;
    if (request.depfile.has_value()) files.push_back(depfile());
    if (request.stamp.has_value()) files.push_back(stamp());
    return files;
  }

  bool isRead(FileId id) const {
    return sources.contains(id) ||
           std::any_of(request.argumentFiles.begin(), request.argumentFiles.end(),
                       [&](const std::string& path) { return DiskTree().look(path).id == id; });
  }

  /// Writes the depfile, and then the stamp, which shows that all has been done.
  Outcome writeOutputs() const {
    Outcome result{true, {}};
    if (request.depfile.has_value()) {
      const std::string text = Depfile(*request.stamp, dependencies());
      result = outcomeOf(*request.depfile, replaceFile(*request.depfile, text));
    }
    if (result.succeeded && request.stamp.has_value()) {
      result = outcomeOf(*request.stamp,
                         clockError ? clockError : replaceFile(*request.stamp, {}, &begin));
    }
    return result;
  }

  static Outcome outcomeOf(const std::string& path, const std::error_code& error) {
    return error ? Outcome{false, ErrorLine(path, error.message())} : Outcome{true, {}};
  }

  /// Returns the files that have been read.
  std::vector<std::string> dependencies() const {
    std::vector<std::string> files;
    for (const SourceFile& file : sources.files()) files.push_back(file.path);
    files.insert(files.end(), request.argumentFiles.begin(), request.argumentFiles.end());
    return files;
  }

  const CheckRequest& request;
  DiskTree tree;
  Sources sources;
  timespec begin{};            ///< The time at which the run began.
  std::error_code clockError;  ///< Why that is not known.
};

}  // namespace

Outcome checkFiles(const CheckRequest& request) {
  // Is never deleted, as the program ends soon: to free what is known of all files takes a tenth of
  // its time.
  static Run* run = nullptr;
  run = new Run(request);
  Outcome result{};
  try {
    result = run->check();
  } catch (const std::bad_alloc&) {
    result = {false, noMemory};
  }
  if (!result.succeeded) run->removeStamp(result.messages);
  return result;
}

}  // namespace zentho::idlgen
