#include "schema/schema.h"

#include <cstdio>

#include "io/file.h"

namespace zentho {
namespace {

void printMembers(const std::vector<CommonMember>& members) {
  for (const CommonMember& member : members) {
    writeLine(stdout, {" - ", member.name, ", ", member.type, ", ",
                       member.isVector != 0 ? "vector" : "base"});
  }
}

}  // namespace

void Schema::output() const {
  writeLine(stdout, {"includes:"});
  for (const std::string& include : includes) writeLine(stdout, {"include ", include});

  writeLine(stdout, {"namespace:"});
  std::string path;
  for (const std::string& component : namespaces) path.append(component).append(" ");
  writeLine(stdout, {path});

  writeLine(stdout, {"enum:"});
  for (const Enum& record : enums) {
    writeLine(stdout, {"enum name ", record.name});
    for (const EnumItem& item : record.items) {
      writeLine(stdout, {" - ", item.name, " = ", item.value});
    }
  }

  writeLine(stdout, {"messages:"});
  for (const Message& message : messages) {
    writeLine(stdout, {"message name: ", message.name});
    printMembers(message.members);
  }

  writeLine(stdout, {"services:"});
  for (const Service& service : services) {
    writeLine(stdout, {"service name: ", service.name});
    writeLine(stdout, {"request: "});
    printMembers(service.request);
    writeLine(stdout, {"response: "});
    printMembers(service.response);
  }
}

}  // namespace zentho
