#include "schema/schema.h"

#include "io/line_writer.h"

namespace zentho {
namespace {

void printMembers(const std::vector<CommonMember>& members) {
  for (const CommonMember& member : members) {
    printLine(
        {" - ", member.name, ", ", member.type, ", ", member.isVector != 0 ? "vector" : "base"});
  }
}

}  // namespace

void Schema::output() const {
  printLine({"includes:"});
  for (const std::string& include : includes) printLine({"include ", include});

  printLine({"namespace:"});
  std::string path;
  for (const std::string& component : namespaces) path.append(component).append(" ");
  printLine({path});

  printLine({"enum:"});
  for (const Enum& record : enums) {
    printLine({"enum name ", record.name});
    for (const EnumItem& item : record.items) {
      printLine({" - ", item.name, " = ", item.value});
    }
  }

  printLine({"messages:"});
  for (const Message& message : messages) {
    printLine({"message name: ", message.name});
    printMembers(message.members);
  }

  printLine({"services:"});
  for (const Service& service : services) {
    printLine({"service name: ", service.name});
    printLine({"request: "});
    printMembers(service.request);
    printLine({"response: "});
    printMembers(service.response);
  }
}

}  // namespace zentho
