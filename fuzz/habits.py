"""Lines of other languages, and slips, that people write in IDL files.

In the lines, {x} is the name of the line that they replace, {t} its type or value, {n} a number
that no other line has, and {earlier} a member above. Many may also end with ";" or ",".
"""

FORMS = {
    # In place of a member. Most are of C, C++, protobuf, Thrift, ROS, Go, Rust, CORBA and Python.
    "member": """
{x}: {t};
{x}: {t},
{x}: {t}.
{x}: {t} ;
{x} = {t}
{x}={t}
{x} := {t}
{x} -> {t}
{x} as {t}
{t} {x};
{t} {x}[4];
{t} {x} = 1;
{t} {x} = 1 [default = 3];
{t} *{x};
{t}[] {x}
{t}[4] {x}
const {t} {x}
const {x}: {t}
static const int {x} = 1;
struct {t} {x};
unsigned int {x};
unsigned short {x};
char {x}[64];
std::string {x};
std::vector<{t}> {x}
{x}: std::string
{x}: std::vector<{t}>
{x}: unsigned long
{x}: long long
{x}: const {t}
{x}: {t}*
{x}: {t}&
{x}: {t}[]
{x}: {t}[4]
{x}: {t} [4]
{x}: [{t},4]
{x}: [{t}
{x}: {t}]
{x}: [ {t} ]
{x}: [{t}; 4],
{x}: {t} = 3
{x}: {t} = "a"
{x}: {t} {t}
{x}: {t} /* note */
{x}: {t} // see #4
/* a longer note */
/* note */
/*
*/
{x}
{x}:
: {t}
optional {t} {x} = 2;
optional {x}: {t}
required {t} {x} = 1;
repeated {t} {x} = 3;
repeated {x}: {t}
map<string, {t}> {x} = 4;
{x}: map<string, int32>
{x}: map<string,int32>
reserved 2, 4;
reserved "{x}";
option deprecated = true;
oneof {x} { a: int8 }
1: {t} {x}
1: required {t} {x};
2: optional list<{t}> {x}
{x}: list<{t}>
{x}: Vec<{t}>,
{x}: Option<{t}>,
{x}: sequence<{t}>
sequence<{t}, 10> {x};
sequence<{t}> {x};
string<32> {x};
{x}: string<=10
{x}: geometry_msgs/Point
geometry_msgs/Point {x}
geometry_msgs/Point[] {x}
builtin_interfaces/Time {x}
{x}: geometry::Point
uint8 {x}=0
uint8 {x} = 0
---
{t} {x} 5
{x} *{t}
{x} []{t}
{x} map[string]{t}
{x} {t} `json:"{x}"`
pub {x}: {t},
let {x}: {t};
var {x}: {t}
{x}: &str,
{x}: {t} | null
{x}?: {t}
@optional
@key {t} {x};
@key {x}: {t}
readonly attribute {t} {x};
typedef {t} {x};
long {x};
octet {x};
in {t} {x},
{t} {x}, {x}{n};
{x}, y{n}: {t}
{x}: {t}, y{n}: {t}
{x}: {t}; y{n}: {t};
{x}: {t} = None
{x}: List[{t}]
self.{x} = {t}
"{x}": "{t}",
"{x}": {t}
- {x}: {t}
* {x}: {t}
2{x}: {t}
a-{x}: {t}
{x}.id: {t}
{x}-: {t}
class: {t}
default: {t}
{x}: void
{x}: auto
{x}: []
{x}: ({t})
{x}: <{t}>
{x}: [[{t}]
{x}: [{t}]]
{earlier}: {t}
{x}:\t{t}
\t{x}: {t}
{x}: {t}\r
{x}:\xa0{t}
“{x}”: {t}
pass
constructor(x);
void get_{x}();
""",
    # In place of a member of a file without includes. In others, some file may declare the names.
    "unknown type": """
{t} {x}
{x}: Int32
{x}: int9
{x}: flaot64
{x}: strng
{x}: boolean
{x}: i32
{x}: f64
{x}: byte
{x}: str
{x}: Any
{x}: [Strng]
{x}: geometry.Point
required {x}
Header header{n}
extends Base
""",
    # In place of an item of an enum.
    "item": """
{x} = {t}
{x} = {t},
{x}={t}
{x}
{x}: {t},
{x}: {t};
{x}: = {t}
{x}: {t} /* note */
{x}: 1 << {t}
{x}: "{t}"
{x}: {t}_000
{x}: 08
{x}: {t}.0
case {x}: {t}
case {x} = {t}
const {x} = {t}
{x} = {t} [deprecated = true];
option allow_alias = true;
reserved 2, 15;
{x}({t}),
{x} => {t}
{x}-A: {t}
2{x}: {t}
{x}: {t} {t}
uint8 {x} = {t}
/* a note */
{x}:\t{t}
{earlier}: {t}
default: {t}
""",
    # Between statements.
    "gap": """
struct X{n} { a: int8 }
Message X{n} { a: int8 }
mesage X{n} { a: int8 }
message X{n} : Base { a: int8 }
message X{n}(a: int8)
message X{n}
message 2X{n} { a: int8 }
message X-{n} { a: int8 }
enum class X{n} { X{n}A: 0 }
enum X{n} : uint8 { X{n}A: 0 }
enum X{n} { X{n}A, X{n}B }
enum X{n} { X{n}A = 0 }
enum X{n} { X{n}A = 0; };
message X{n} { a: int8; b: int8; }
message X{n} { a: int8, b: int8 }
message X{n} { int8 a; };
message X{n} { a: int8 };
message X{n} { a: int8}
const X{n} = 1
const X{n}: int32 = 10
const int32 X{n} = 10;
static const int X{n} = 1;
option x = y;
option java_package = "com.robot";
syntax = "proto3";
;
package a.b
import "a/b.proto";
import a.b
from a import b
using namespace std;
using X{n} = int32;
typedef int32 X{n}
namespace py robot
rpc Get{n} (A) returns (B);
union X{n} { 1: int8 a }
exception X{n} { a: int8 }
public message X{n} { a: int8 }
export interface X{n} { a: int8 }
type X{n} struct { a int8 }
@final
@topic
---
/* note */
/* a longer note */
*/
// the # of wheels
* note
TODO
""",
    # In place of the line that begins one of these. {x} is its name.
    "enum": """
enum {x} : uint8 {
enum class {x} {
enum {x} = {
typedef enum {x} {
Enum {x} {
enumeration {x} {
pub enum {x} {
enum {x}{
""",
    "message": """
struct {x} {
message {x} : Base {
message {x} extends Base {
message {x}: Base {
class {x} {
public message {x} {
message {x} = {
Message {x} {
mesage {x} {
pub struct {x} {
type {x} struct {
struct {x}{
record {x} {
""",
    "service": """
service {x} : Base {
interface {x} {
rpc {x} {
Service {x} {
action {x} {
service {x} = {
""",
    "part": """
Request {
{x} = {
{x} Data {
{x}s {
struct {x} {
""",
    # In place of the line that ends a declaration.
    "end": """
};
},
})
});
""",
    # In place of a last member and the "}" below it.
    "last member": """
{x} = {t} }
{x}: {t}}
{x}: {t}; }
{x}: {t}, }
{t} {x}; }
{x}: {t}; };
""",
    # In place of an include. {x} is its path.
    "include": """
import "{x}"
include "{x}";
include "{x}
include {x}
include '{x}'
include ("{x}")
include "{x}" as a
using "{x}"
""",
    # In place of a namespace. {x} is its path.
    "namespace": """
namespace {x};
namespace cpp {x}
namespace = {x}
namespace {x}::a
package {x}
module {x};
namespace "{x}"
Namespace {x}
""",
}
FORMS = {place: [[line] for line in lines.strip("\n").split("\n")]
         for place, lines in FORMS.items()}

# A list in another list: its first line is the mistake. In a declaration:
FORMS["inner list"] = [
    ["oneof kind{n} {", "    a{n}: int8", "    b{n}: string", "}"],
    ["union u{n} {", "    a{n}: int8", "}"],
    ["group g{n} {", "    a{n}: int8", "}"],
    ["struct {", "    a{n}: int8", "}"],
]
# Between statements:
FORMS["outer list"] = [
    ["rpc F{n} {", "    a: int8", "}"],
    ["extend X{n} {", "    a: int8", "}"],
    ["struct X{n} {", "    a: int8", "    b: [string]", "}"],
    ["message X{n} : Base {", "    a: int8", "}"],
    ["enum class X{n} {", "    X{n}A: 1", "}"],
    ["union X{n} {", "    a: int8", "}"],
    ["const X{n} = {", "    a: int8", "}"],
]

# Declarations in another one, which cannot be told from a missing brace.
NESTED = [
    ["message X{n} {", "    a: int8", "}"],
    ["enum X{n} {", "    X{n}A: 0", "}"],
    ["enum X{n} { X{n}A: 0 }"],
]
