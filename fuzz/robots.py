"""Random IDL files that look like those of robots: messages, enums, services and comments."""
import collections

# A line of a file. `role` is "include", "namespace", "gap" (between statements), "enum", "message",
# "service", "part" (the head of a request or response), "member", "item", "end" or "other". A line
# with a declaration has its name, and a member its type, an item its value.
Line = collections.namedtuple("Line", "role text name value", defaults=("", ""))

FIELDS = {
    "float64": "x y z roll pitch yaw heading latitude longitude altitude speed distance tolerance "
               "curvature covariance_xx range_max angle_min angle_increment wheel_base mass",
    "float32": "voltage current temperature percentage intensity humidity torque gain throttle",
    "uint32": "sequence height width step point_count frame_number checksum retries",
    "uint64": "stamp timestamp_ns uptime serial_number bytes_sent",
    "uint16": "port error_code battery_cycles pulse_width",
    "uint8": "priority channel satellites confidence level flags",
    "int32": "id index offset encoder_ticks position_x position_y exit_code",
    "int64": "duration_ns deadline offset_ns",
    "int16": "raw_value steering_angle gyro_x gyro_y",
    "int8": "gear direction signal_strength",
    "string": "frame_id name label description map_name firmware_version vendor topic child_frame",
    "[float64]": "ranges intensities covariance position velocity effort coefficients weights",
    "[float32]": "cell_voltages distances histogram torques",
    "[string]": "joint_names labels warnings topics capabilities",
    "[uint8]": "payload image_data mask digest",
    "[[float64]]": "jacobian rotation samples cost_map",
    "[[int32]]": "grid clusters regions",
}
MESSAGES = """Pose Twist Point Quaternion Header Odometry LaserScan PointCloud JointState Waypoint
    BatteryState Imu NavSatFix CameraInfo Image Transform Wrench Trajectory TrajectoryPoint Obstacle
    TrackedObject BoundingBox OccupancyGrid Goal Feedback DiagnosticStatus MotorCommand WheelSpeeds
    GripperCommand Footprint LaneBoundary TrafficLight RadarTrack SonarRange Magnetometer Route
    Docking ChargerStatus ArmPlan Contact EmergencyStop Heartbeat LogRecord Calibration""".split()
SERVICES = """SetMode GetMap PlanRoute Calibrate StartMission CancelGoal LoadMap SetGripper Dock
    QueryStatus ResetOdometry MoveArm Localize UpdateFirmware""".split()
ENUMS = {
    "Mode": "IDLE MANUAL AUTO FAULT", "Status": "OK WARN ERROR STALE",
    "GearState": "PARK REVERSE NEUTRAL DRIVE", "Light": "RED YELLOW GREEN OFF",
    "ObjectClass": "UNKNOWN CAR PEDESTRIAN CYCLIST ANIMAL", "FixType": "NO_FIX FIX_2D FIX_3D RTK",
    "ChargePhase": "DISCHARGING CHARGING FULL", "Side": "LEFT RIGHT BOTH",
    "ControlLevel": "POSITION VELOCITY EFFORT CURRENT", "Priority": "LOW MEDIUM HIGH",
}
INCLUDED = {
    "common/geometry.idl": "geometry.Pose geometry.Vector3 [geometry.Point]",
    "std/time.idl": "std_msgs.Time std_msgs.Header",
    "sensors/lidar.idl": "sensors.Scan [sensors.Echo]",
    "planning/path.msg": "planning.Path [planning.Segment] [[planning.Cell]]",
}
NAMESPACES = ["robot", "robot.nav", "fleet.msgs", "vehicle.control", "arm"]
COMMENTS = ["in metres", "radians", "since start-up", "in the frame of the map", "0 if unknown",
            "see the manual: 4.2", "not yet used", "m/s", "TODO: unit?"]


def snake(name):
    """Returns the name of a member for a type: "TrackedObject" becomes "tracked_object"."""
    return "".join("_" + letter.lower() if letter.isupper() else letter for letter in name)[1:]


class RobotFile:
    """Makes the lines of one valid file."""

    def __init__(self, rng):
        self.rng = rng
        self.lines = []
        self.types = []  # What members may use besides the built-in types.
        self.separator = rng.choice([": ", ": ", ": ", ":", " : ", " "])
        self.mark = rng.choice(["#", "#", "//"])
        self.has_includes = rng.random() < 0.4
        self.write()

    def write(self):
        rng = self.rng
        if rng.random() < 0.5:
            self.add("other", f"{self.mark} {rng.choice(MESSAGES)} of the robot.")
        self.add("other", "")
        if self.has_includes:
            for path in rng.sample(sorted(INCLUDED), rng.randint(1, 3)):
                self.add("include", f'include "{path}"', path)
                self.types += INCLUDED[path].split()
            self.add("other", "")
        if rng.random() < 0.7:
            path = rng.choice(NAMESPACES)
            self.add("namespace", f"namespace {path}", path)
        self.add("gap", "")
        for name in rng.sample(sorted(ENUMS), rng.choice([0, 1, 1, 2])):
            self.write_enum(name)
        for name in rng.sample(MESSAGES, rng.randint(3, 7)):
            self.write_message(name)
        for name in rng.sample(SERVICES, rng.choice([0, 0, 1, 2])):
            self.write_service(name)

    def add(self, role, text, name="", value=""):
        self.lines.append(Line(role, text, name, value))

    def comment(self):
        return f"  {self.mark} {self.rng.choice(COMMENTS)}" if self.rng.random() < 0.2 else ""

    def write_enum(self, name):
        self.add("enum", f"enum {name} {{", name)
        prefix = snake(name).upper() + "_"  # Two enums cannot share an item.
        for value, item in enumerate(ENUMS[name].split()):
            text = f"    {prefix}{item}{self.separator}{value}{self.comment()}"
            self.add("item", text, prefix + item, str(value))
        self.add("end", "}", name)
        self.add("gap", "")
        self.types.append(name)

    def members(self):
        """Returns some names and types."""
        rng, result = self.rng, {}
        for _ in range(rng.randint(2, 8)):
            if self.types and rng.random() < 0.3:
                member_type = rng.choice(self.types)
                name = snake(member_type.strip("[]").split(".")[-1])
                if "." not in member_type and rng.random() < 0.3:
                    name, member_type = name + "_list", f"[{member_type}]"
            else:
                member_type = rng.choice(sorted(FIELDS))
                name = rng.choice(FIELDS[member_type].split())
            result[name] = member_type
        return result.items()

    def write_members(self, members, indent):
        for name, member_type in members:
            if self.rng.random() < 0.06:
                self.add("other", f"{indent}{self.mark} {self.rng.choice(COMMENTS)}")
            text = f"{indent}{name}{self.separator}{member_type}{self.comment()}"
            self.add("member", text, name, member_type)

    def write_message(self, name):
        members = self.members()
        if len(members) < 4 and self.rng.random() < 0.3:
            text = " ".join(f"{member}: {member_type}" for member, member_type in members)
            self.add("other", f"message {name} {{ {text} }}")
        else:
            self.add("message", f"message {name} {{", name)
            self.write_members(members, "    ")
            self.add("end", "}", name)
        self.add("gap", "")
        self.types.append(name)

    def write_service(self, name):
        self.add("service", f"service {name} {{", name)
        for part in "request", "response":
            self.add("part", f"    {part} {{", part)
            self.write_members(self.members(), "        ")
            self.add("end", "    }", part)
        self.add("end", "}", name)
        self.add("gap", "")
