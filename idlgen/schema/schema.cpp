#include "schema/schema.h"

#include "io/line_writer.h"

namespace zentho {
namespace {

void printMembers(const std::vector<CommonMember>& members) {
  for (const CommonMember& member : members) {
    idlgen::printLine(
        {" - ", member.name, ", ", member.type, ", ", member.isVector != 0 ? "vector" : "base"});
  }
}

}  // namespace

void Schema::output() const {
  idlgen::printLine({"includes:"});
  for (const std::string& include : includes) idlgen::printLine({"include ", include});

  idlgen::printLine({"namespace:"});
  std::string path;
  for (const std::string& component : namespaces) path.append(component).append(" ");
  idlgen::printLine({path});

  idlgen::printLine({"enum:"});
  for (const Enum& record : enums) {
    idlgen::printLine({"enum name ", record.name});
    for (const EnumItem& item : record.items) {
      idlgen::printLine({" - ", item.name, " = ", item.value});
    }
  }

  idlgen::printLine({"messages:"});
  for (const Message& message : messages) {
    idlgen::printLine({"message name: ", message.name});
    printMembers(message.members);
  }

  idlgen::printLine({"services:"});
  for (const Service& service : services) {
    idlgen::printLine({"service name: ", service.name});
    idlgen::printLine({"request: "});
    printMembers(service.request);
    idlgen::printLine({"response: "});
    printMembers(service.response);
  }
}

}  // namespace zentho
