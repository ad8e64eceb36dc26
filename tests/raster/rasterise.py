"""Draws boxes that were called outside with Mesa's software rasteriser, and counts those that can be seen all the same.

    rasterise.py CASES [--size PIXELS] [--all]

CASES comes from zq_raster_cases. Each box is 12 triangles, multiplied with the camera's matrix and clipped by OpenGL with
the depth range of the camera; a fragment anywhere marks the box. The rasteriser rounds, too: exact rationals decide
whether a marked box has a point that satisfies all inequalities of the matrix. If it has one, it was not outside.

Prints a table per family and depth range, and one per ratio of far to near; with --all also one line for each of their
combinations. Ends with code 1 when a box that the volume calls outside was not, when the drawing cannot be believed
because it shows too little or what is outside by more than rounding, or when no software rasteriser can be started.
"""

import argparse
import ctypes
import itertools
import json
import os
import sys
from fractions import Fraction

os.environ["LIBGL_ALWAYS_SOFTWARE"] = "1"  # read when Mesa is loaded

try:
    import moderngl
    import numpy
except ImportError as error:
    sys.exit(f"rasterise: {error}; Debian: python3-moderngl python3-numpy")

RECORD = numpy.dtype([("matrix", "<f4", 16), ("lower", "<f4", 3), ("upper", "<f4", 3), ("family", "u1"), ("range", "u1"),
                      ("ratio", "u1"), ("volume", "u1"), ("frustum", "u1"), ("unused", "u1", 3)])
DRAWN = "matrix lower upper".split()
OUTSIDE = 1
BATCH = 20000
ROUNDING = Fraction(4, 2 ** 24)  # of the rasteriser, in the largest sum of terms: a sum of four terms for z and for w
GL_LOWER_LEFT, GL_NEGATIVE_ONE_TO_ONE, GL_ZERO_TO_ONE = 0x8CA1, 0x935E, 0x935F

VERTEX_SHADER = """
#version 430
in mat4 matrix;
in vec3 lower;
in vec3 upper;
flat out int box;
const int CORNERS[36] = int[]( 0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                               2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5 );
void main()
{
    int corner = CORNERS[gl_VertexID];
    bvec3 isUpper = bvec3( ( corner & 1 ) != 0, ( corner & 2 ) != 0, ( corner & 4 ) != 0 );
    gl_Position = matrix * vec4( mix( lower, upper, isUpper ), 1 );
    box = gl_InstanceID;
}
"""
FRAGMENT_SHADER = """
#version 430
flat in int box;
layout( std430, binding = 0 ) buffer Seen { uint isSeen[]; };
void main() { isSeen[box] = 1u; }
"""


def stop(text):
    sys.exit(f"rasterise: {text}")


class Rasteriser:
    """A framebuffer without a window; nothing is culled, blended, depth-tested or clamped."""

    def __init__(self, size):
        self.context = self.start()
        self.clip_control = self.find("glClipControl", None, ctypes.c_uint, ctypes.c_uint)
        self.get_error = self.find("glGetError", ctypes.c_uint)
        self.context.simple_framebuffer((size, size), components=1).use()
        self.program = self.context.program(vertex_shader=VERTEX_SHADER, fragment_shader=FRAGMENT_SHADER)

    def start(self):
        reasons = []
        for device in range(8):
            try:
                context = moderngl.create_standalone_context(
                    require=450, backend="egl", libgl="libOpenGL.so.0", libegl="libEGL.so.1", device_index=device)
            except Exception as error:  # of many types, by what is missing
                if not reasons or "requested device index" not in str(error):
                    reasons.append(str(error))
                continue
            self.name = f"{context.info['GL_RENDERER']}, {context.info['GL_VERSION']}"
            if "llvmpipe" in self.name:
                return context
            reasons.append(f"{self.name} is not a software rasteriser")
            context.release()
        stop("EGL starts no llvmpipe with OpenGL 4.5; Debian: libegl1 libgl1-mesa-dri libopengl0. It says: " +
             "; ".join(dict.fromkeys(reasons)))

    def find(self, name, result, *arguments):
        """A function of OpenGL that moderngl does not offer."""
        get_address = ctypes.CDLL("libEGL.so.1").eglGetProcAddress
        get_address.restype, get_address.argtypes = ctypes.c_void_p, [ctypes.c_char_p]
        address = get_address(name.encode())
        if not address:
            stop(f"{self.name} has no {name}")
        return ctypes.CFUNCTYPE(result, *arguments)(address)

    def draw(self, records, has_zero_to_one):
        """Whether each box has a fragment."""
        self.clip_control(GL_LOWER_LEFT, GL_ZERO_TO_ONE if has_zero_to_one else GL_NEGATIVE_ONE_TO_ONE)
        instances = numpy.concatenate([records[name] for name in DRAWN], axis=1)
        buffer = self.context.buffer(numpy.ascontiguousarray(instances).tobytes())
        seen = self.context.buffer(bytes(4 * len(records)))
        seen.bind_to_storage_buffer(0)
        array = self.context.vertex_array(self.program, [(buffer, "16f 3f 3f/i", *DRAWN)])
        array.render(moderngl.TRIANGLES, vertices=36, instances=len(records))
        self.context.finish()
        if error := self.get_error():
            stop(f"OpenGL reports error {error:#x}")
        result = numpy.frombuffer(seen.read(), "<u4") != 0
        for thing in (array, seen, buffer):
            thing.release()
        return result


def make_inequalities(matrix, depth_range):
    """a x + b y + c z + d >= 0, exactly; sides as the volume numbers them, but that lower z is 4."""
    x, y, z, w = ([Fraction(float(matrix[row + 4 * column])) for column in range(4)] for row in range(4))

    def add(a, b, factor=1):
        return [p + factor * q for p, q in zip(a, b)]

    lower = add(w, z) if depth_range == 0 else z
    return [add(w, x), add(w, x, -1), add(w, y), add(w, y, -1), lower, add(w, z, -1)]


def evaluate(plane, point):
    return plane[0] * point[0] + plane[1] * point[1] + plane[2] * point[2] + plane[3]


def determinant(a, b, c):
    return (a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) + a[2] * (b[0] * c[1] - b[1] * c[0]))


def is_outside(record):
    """Whether no point of the box satisfies all inequalities. What they leave of the box is bounded: it is empty, or has
    a corner where three of the twelve planes meet and that is beyond none."""
    lower, upper = ([Fraction(float(value)) for value in record[name]] for name in ("lower", "upper"))
    sides = make_inequalities(record["matrix"], record["range"])
    corners = list(itertools.product(*zip(lower, upper)))
    values = [[evaluate(plane, corner) for corner in corners] for plane in sides]
    if any(max(row) < 0 for row in values):
        return True
    if any(min(column) >= 0 for column in zip(*values)):
        return False
    planes = list(sides)
    for axis in range(3):
        planes.append([Fraction(i == axis) for i in range(3)] + [-lower[axis]])
        planes.append([-Fraction(i == axis) for i in range(3)] + [upper[axis]])
    for three in itertools.combinations(planes, 3):
        weight = determinant(*three)
        if weight == 0:
            continue
        point = []
        for axis in range(3):
            replaced = [[-plane[3] if i == axis else plane[i] for i in range(3)] for plane in three]
            point.append(determinant(*replaced) / weight)
        if all(evaluate(plane, point) >= 0 for plane in planes):
            return False
    return True


def is_outside_by_rounding(record):
    """Of a box that is outside: whether it is so close to each plane it is beyond that rounding may have drawn it."""
    corners = list(itertools.product(*zip(*([Fraction(float(v)) for v in record[name]] for name in ("lower", "upper")))))
    matrix = [Fraction(float(value)) for value in record["matrix"]]
    for side, plane in enumerate(make_inequalities(record["matrix"], record["range"])):
        terms = max(sum(abs(matrix[row + 4 * i] * value) for row in (side // 2, 3) for i, value in enumerate((*corner, 1)))
                    for corner in corners)
        if max(evaluate(plane, corner) for corner in corners) < -ROUNDING * terms:
            return False
    return True


def print_table(title, names, boxes):
    """A line per name: of the boxes that one of the two calls outside, and of those that both keep."""
    print(f"\n| {title} | volume: outside | drawn | not outside | frustum: outside | drawn | not outside | kept | drawn |")
    print("|---|---|---|---|---|---|---|---|---|")
    for name in dict.fromkeys(names):
        row = boxes[names == name]
        cells = [name]
        for outside in (row[row["volume"]], row[row["frustum"]]):
            cells.append(f"{len(outside):,} | {outside['seen'].sum():,} | {outside['wrong'].sum():,}" if len(outside) else "| |")
        kept = row[~row["volume"] & ~row["frustum"]]
        print("|", " | ".join(cells), f"| {len(kept):,} | {kept['seen'].sum():,} |")


def main():
    parser = argparse.ArgumentParser(description="Draws boxes that were called outside.")
    parser.add_argument("cases")
    parser.add_argument("--size", type=int, default=1024, help="pixels on each side of the image")
    parser.add_argument("--all", action="store_true", help="a line for each combination of family, range and ratio")
    options = parser.parse_args()
    if not 1 <= options.size <= 8192:
        parser.error("--size is 1 to 8192")
    try:
        with open(options.cases, "rb") as file:
            names = json.loads(file.readline())
            records = numpy.frombuffer(file.read(), RECORD)
    except (OSError, ValueError) as error:
        stop(f"{options.cases}: {error}")
    if not len(records):
        stop(f"{options.cases} has no boxes")

    rasteriser = Rasteriser(options.size)
    is_seen = numpy.zeros(len(records), bool)
    for has_zero_to_one in (False, True):
        chosen = numpy.flatnonzero((records["range"] != 0) == has_zero_to_one)
        for first in range(0, len(chosen), BATCH):
            batch = chosen[first:first + BATCH]
            is_seen[batch] = rasteriser.draw(records[batch], has_zero_to_one)

    boxes = numpy.zeros(len(records), [(name, bool) for name in ("volume", "frustum", "seen", "wrong")])
    boxes["volume"], boxes["frustum"] = records["volume"] == OUTSIDE, records["frustum"] == OUTSIDE
    boxes["seen"] = is_seen
    nb_far = 0
    cameras, ratios = [], []
    for record, box in zip(records, boxes):
        camera = f"{names['families'][record['family']]}, {names['ranges'][record['range']]}"
        ratio = f"{names['ratios'][record['ratio']]:.0e}".replace("e+0", "e")
        cameras.append(camera)
        ratios.append(ratio)
        if not box["seen"] or not (box["volume"] or box["frustum"]):
            continue
        box["wrong"] = not is_outside(record)
        nb_far += not box["wrong"] and not is_outside_by_rounding(record)
        if box["wrong"] and box["volume"]:
            print(f"not outside: {camera}, {ratio}: matrix by columns {[float(v).hex() for v in record['matrix']]}, box "
                  f"{[float(v).hex() for v in record['lower']]} to {[float(v).hex() for v in record['upper']]}")
    cameras, ratios = numpy.array(cameras), numpy.array(ratios)

    print(f"{rasteriser.name}; {options.size} x {options.size} pixels, {len(records):,} boxes")
    print_table("camera, depth", cameras, boxes)
    print_table("far / near", ratios, boxes)
    if options.all:
        print_table("camera, depth, far / near", numpy.char.add(numpy.char.add(cameras, ", "), ratios), boxes)

    failures = []
    if wrong := (boxes["volume"] & boxes["wrong"]).sum():
        failures.append(f"{wrong} boxes that the volume calls outside can be seen and are not outside")
    # what is kept must be seen often, or nothing above means anything
    is_kept = ~boxes["volume"] & ~boxes["frustum"]
    for name in dict.fromkeys(cameras):
        kept = is_kept & (cameras == name)
        if 4 * (kept & is_seen).sum() < kept.sum():
            failures.append(f"{name}: of {kept.sum()} boxes that were kept only {(kept & is_seen).sum()} can be seen")
    if nb_far:
        failures.append(f"{nb_far} boxes are drawn that are outside by more than rounding: the drawing is another one")
    if not (boxes["frustum"] & boxes["wrong"]).any():
        failures.append("no wrong verdict of the frustum was seen: the drawing finds nothing")
    for text in failures:
        print(f"rasterise: {text}", file=sys.stderr)
    sys.exit(bool(failures))


if __name__ == "__main__":
    main()
