#!/usr/bin/env python3
"""Writes the seed corpora fuzz/corpus/<target>/.

The byte codes follow the Op and Kind enums and the input layouts of the
<target>_fuzz.cpp files; keep them in step. Run from anywhere:

    python3 fuzz/make_seeds.py
"""

import math
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))

# ---------------------------------------------------------------- encoding


def tame(x):
    """FuzzInput::Tame(): a multiple of 1/64 as a little-endian int16."""
    v = int(round(x * 64))
    assert -32768 <= v < 32768, x
    return struct.pack("<h", v)


def raw(x):
    """FuzzInput::Raw(): a double's own bytes."""
    return struct.pack("<d", x)


def tames(*xs):
    return b"".join(tame(x) for x in xs)


def raws(*xs):
    return b"".join(raw(x) for x in xs)


def u8(*bs):
    return bytes(b & 0xFF for b in bs)


# ---------------------------------------------------------------- math

(M_LOAD_MATRIX, M_LOAD_QUAT, M_VEC3_NORMALIZE, M_VEC3_PERP, M_CUBIC, M_VEC3_MISC, M_VEC4_MISC,
 M_DET_ADJOINT, M_INVERSE, M_REORTHOGONALIZE, M_ARITHMETIC, M_ROWS_COLS, M_AXIS_TRANSFORMS,
 M_VECTOR_PRODUCTS, M_QUAT_FROM_MATRIX, M_SLERP, M_QUAT_ALGEBRA, M_ROT, M_ALIGN, M_ORIENT,
 M_MIRROR, M_PROJ, M_XFORM, M_ROTATE_BY, M_OUTPUT) = range(25)
RAW = 0x80  # high bit of an operation byte: read its numbers as raw doubles

IDENTITY = (1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
SPECIALS = (math.nan, math.inf, -math.inf, 5e-324, -0.0, 1e308, -1e-308, 2.2250738585072014e-308,
            1.0, -1.0, 0.5, 1e-10, 5e-11, 1e-7, 3.0, -2.0)


def math_seeds():
    seeds = {}
    seeds["identity"] = (u8(M_LOAD_MATRIX) + tames(*IDENTITY) + u8(M_INVERSE) +
                         u8(M_DET_ADJOINT, 0) + u8(M_REORTHOGONALIZE, 1) +
                         u8(M_REORTHOGONALIZE, 2) + u8(M_XFORM) + tames(*([1] * 13)) + u8(0))
    # A full-pivoting workout: the largest value off the diagonal.
    seeds["inverse"] = (u8(M_LOAD_MATRIX) + tames(1, 2, 0, 0, 9, 1, 0, 0, 0, 0, 3, 1, 0, 4, 0, 1) +
                        u8(M_DET_ADJOINT, 0) + u8(M_INVERSE) + u8(M_INVERSE) +
                        u8(M_LOAD_MATRIX) + tames(0.015625, 0, 0, 0, 0, 0.015625, 0, 0, 0, 0,
                                                  0.015625, 0, 0, 0, 0, 1) + u8(M_INVERSE))
    seeds["nonfinite"] = (u8(M_LOAD_MATRIX | RAW) + raws(*SPECIALS) + u8(M_DET_ADJOINT | RAW, 1) +
                         u8(M_INVERSE | RAW) + u8(M_REORTHOGONALIZE | RAW, 10) +
                         u8(M_VEC3_NORMALIZE | RAW) + raws(5e-324, 1e308, 1e308) +
                         u8(M_VEC3_PERP | RAW) + raws(math.nan, 0.0, -0.0, 1.0, 2.0, 3.0) +
                         u8(M_VEC4_MISC | RAW) + raws(*SPECIALS[:9]) +
                         u8(M_QUAT_FROM_MATRIX | RAW) + raws(0, 0, 0, 1) +
                         u8(M_OUTPUT | RAW, 3, 17, 9) + raws(*SPECIALS[:8]))
    seeds["vectors"] = (u8(M_VEC3_PERP) + tames(1, 0, 0, 0, 0, 0) +
                        u8(M_VEC3_PERP) + tames(1, 1, 1, 0, 0, 0) +
                        u8(M_VEC3_PERP) + tames(0, 0, 2, 0, 0, 0) +
                        u8(M_VEC3_NORMALIZE) + tames(3, 0, 4) +
                        u8(M_CUBIC) + tames(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0.5) +
                        u8(M_VEC3_MISC) + tames(1, 2.5, -3, 4, 5, 6, 2, 4, 2, 0.5) +
                        u8(M_VEC4_MISC) + tames(2, 4, 6, 2, 2, 4, 6, 0, 3))
    seeds["rotations"] = (u8(M_LOAD_QUAT) + tames(1, 2, 3, 4) +
                          u8(M_QUAT_FROM_MATRIX) + tames(0, 0, 1, 0) +
                          u8(M_SLERP) + tames(0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1, 0.25) +
                          u8(M_QUAT_ALGEBRA) + tames(0, 1, 0, 1, 2) + u8(1) +
                          u8(M_ROT) + tames(0, 0, 1, 3.140625) +
                          u8(M_ROTATE_BY) + tames(0, 0, 0, 2, 0, 0, 1, 1.5703125) + u8(1) +
                          u8(M_AXIS_TRANSFORMS) + tames(1, 2, 3, 0.5) + u8(4) +
                          u8(M_VECTOR_PRODUCTS) + tames(1, 2, 3, 1, 2, 3, 1))
    seeds["compound"] = (u8(M_ALIGN) + tames(1, 0, 0, 0, 1, 0) + u8(1) +
                         u8(M_ALIGN) + tames(1, 0, 0, 2, 0, 0) + u8(0) +
                         u8(M_ORIENT) + tames(0, 0, 5, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 1, 0, 0, 0,
                                              1) + u8(1, 1) +
                         u8(M_MIRROR) + tames(1, 2, 3) + u8(0) +
                         u8(M_PROJ) + tames(1, 1, 100, 1.5) + u8(1, 0) +
                         u8(M_ROWS_COLS, 3, 1) + tames(1, 2, 3, 4, 5, 6, 7, 8) +
                         u8(M_ARITHMETIC) + tames(*IDENTITY) + tames(2) + u8(0) +
                         u8(M_OUTPUT, 0, 6, 0) + tames(1, 2.5, -3, 1, 2, 3, 4, 0.5))
    return seeds


# ---------------------------------------------------------------- scene

(S_CREATE, S_CLONE, S_SCENE_ADD, S_SCENE_DELETE, S_SHOW_SHAPE, S_SELECT_SHAPE, S_SHOW_SHAPES,
 S_DRAW_SHAPES, S_SCENE_SET_MATRIX, S_SCENE_RESET, S_GROUP_ADD, S_DRAW, S_DRAW_DIRECT,
 S_TRANSFORM, S_COLOUR, S_FLAGS, S_ARROW_SETTERS, S_NULL_ROUND_TRIP, S_TESSELLATION,
 S_FORGET_LISTS) = range(20)
TILE, BARE, SPHERE, CYLINDER, CONE, ARROW, GROUP, AXIS = range(8)

# PickAny(): b % 8 picks null (0), the outsider (1), a dead address (2) or,
# otherwise, live shape (b // 8) % count.
NULL, OUTSIDER = 0, 1


def live(i):
    return 3 + 8 * i


def create(kind, half=0.5, a=1.0, b=2.0, c=0.5, flag=0, count=3):
    # count is read as byte % 9 - 2
    return u8(S_CREATE, kind) + tames(half, a, b, c) + u8(flag, count + 2)


def scene_seeds():
    seeds = {}
    # Each kind once: add, draw, delete.
    s = b""
    for kind in range(8):
        s += create(kind)
    for i in range(8):
        s += u8(S_SCENE_ADD, i)
    s += u8(S_DRAW_SHAPES)
    for i in range(8):
        s += u8(S_SCENE_DELETE, live(0))
    s += u8(S_DRAW_SHAPES)
    seeds["kinds"] = s
    # Added twice, deleted once; deleted again, absent; absent pointers.
    seeds["twice"] = (create(SPHERE) + create(TILE) + u8(S_SCENE_ADD, 0, S_SCENE_ADD, 0) +
                      u8(S_SCENE_DELETE, live(0), S_SCENE_DELETE, 2, S_SCENE_DELETE, NULL,
                         S_SCENE_DELETE, OUTSIDER, S_SCENE_DELETE, live(0)) +
                      u8(S_SHOW_SHAPE, OUTSIDER, 0, S_SELECT_SHAPE, NULL, 1, S_DRAW_SHAPES))
    # A group holding a group, handed to the scene, selected, drawn, reset.
    seeds["groups"] = (create(GROUP) + create(TILE) + create(AXIS) + create(ARROW, flag=0) +
                       u8(S_GROUP_ADD, 0, 1, S_GROUP_ADD, 2, 3, S_GROUP_ADD, 0, 2) +
                       u8(S_SCENE_ADD, 0, S_SELECT_SHAPE, live(0), 1) +
                       u8(S_COLOUR, 1, 1) + tames(0.5, 0.25, 1, 1) + u8(0xFF, 0, 0) +
                       u8(S_DRAW_SHAPES, S_DRAW_DIRECT, 0, S_SCENE_DELETE, live(1),
                          S_SCENE_RESET, S_DRAW_SHAPES))
    # Hidden scene, broadcast matrix, null stored and removed both ways.
    seeds["show"] = (create(CONE) + create(CYLINDER) + u8(S_SCENE_ADD, 0, S_SCENE_ADD, 1) +
                     u8(S_SHOW_SHAPES, 0, S_DRAW_SHAPES, S_SHOW_SHAPES, 2, S_DRAW_SHAPES) +
                     u8(S_SHOW_SHAPE, live(1), 0, S_DRAW_SHAPES) +
                     u8(S_SCENE_SET_MATRIX, 0) + tames(*IDENTITY) + u8(1) +
                     u8(S_SCENE_SET_MATRIX, 1) + raws(*SPECIALS) + u8(0) +
                     u8(S_NULL_ROUND_TRIP, 1, S_NULL_ROUND_TRIP, 0))
    # Copies share lists and quadric handles; the context loses its lists.
    seeds["copies"] = (create(SPHERE) + u8(S_SCENE_ADD, 0, S_DRAW_SHAPES, S_CLONE, 0) +
                       u8(S_SCENE_ADD, 1, S_DRAW_SHAPES, S_SCENE_DELETE, live(0)) +
                       u8(S_FORGET_LISTS, S_TRANSFORM, 0, 7) + tames(0.5, 0.25, 1) +
                       u8(S_DRAW_SHAPES, S_TESSELLATION, 4, 2) + create(ARROW, count=4) +
                       u8(S_ARROW_SETTERS, 1, 52) + tames(0) +  # SetArrowNum(4)
                       u8(S_DRAW, 1, S_FLAGS, 1, 1, S_DRAW_SHAPES))
    return seeds


# ---------------------------------------------------------------- belt

TAME, RAW_MODE = 0, 1


def belt_case(r1, r2, entraxe, quality=20, btype=16, mode=TAME):
    """Mode byte, the two radii, the entraxe, quality and type bytes."""
    nums = raws(r1, r2, entraxe) if mode == RAW_MODE else tames(r1, r2, entraxe)
    return u8(mode) + nums + u8(quality, btype)


def belt_seeds():
    seeds = {}
    seeds["full"] = (belt_case(1, 1, 1) + belt_case(1, 1, 5, 50) + belt_case(2, 0.5, 6, 10) +
                     belt_case(0.5, 2, 6, 33, 3) + belt_case(1, 3, -4, 20))
    # The host's types 1, 2, 4, 8 and the stored codes, on separate pulleys.
    seeds["single"] = b"".join(belt_case(1, 0.5, 5, 20, t) for t in (1, 2, 4, 8))
    # Touching, overlapping, concentric, inside.
    seeds["contact"] = (belt_case(1, 1, 2, 20, 2) + belt_case(1, 1, 2, 20, 4) +
                        belt_case(1, 1, 1, 20, 2) + belt_case(1, 1, 1, 20, 1) +
                        belt_case(1, 1, 0) + belt_case(3, 1, 1) + belt_case(3, 1, 2) +
                        belt_case(1, 1, 0.0078125, 50))
    # Quality out of range: the belt keeps 20, the builder takes it as it is.
    seeds["quality"] = (belt_case(1, 2, 4, 0) + belt_case(1, 2, 4, 9) + belt_case(1, 2, 4, 51) +
                        belt_case(1, 2, 4, 255))
    seeds["nonfinite"] = (belt_case(math.nan, 1, 5, mode=RAW_MODE) +
                          belt_case(1, math.inf, 5, mode=RAW_MODE) +
                          belt_case(1, 1, -math.inf, mode=RAW_MODE) +
                          belt_case(1e308, 1e308, 1e308, mode=RAW_MODE) +
                          belt_case(5e-324, 0, 1e-300, mode=RAW_MODE) +
                          belt_case(-1, -2, 2, 20, 2))
    return seeds


# ---------------------------------------------------------------- polyline

(P_ADD_XYZ, P_ADD_COPY, P_ADD_OWNED, P_ADD_NULL, P_ADD_ARRAY, P_ADD_NULL_ARRAY, P_INIT, P_MAKE,
 P_DRAW_DIRECT, P_DRAW, P_COLOUR) = range(11)


def polyline_seeds():
    seeds = {}
    seeds["strip"] = (u8(TAME, P_MAKE, P_DRAW_DIRECT, P_ADD_XYZ) + tames(1, 2, 3) +
                      u8(P_ADD_COPY) + tames(-1, 0.5, 0) + u8(P_ADD_OWNED) + tames(0, 0, -4) +
                      u8(P_MAKE, P_MAKE, P_DRAW_DIRECT, P_ADD_NULL, P_DRAW_DIRECT,
                         P_DRAW_DIRECT, P_DRAW))
    seeds["arrays"] = (u8(TAME, P_ADD_ARRAY, 3) + tames(1, 2, 3, 4, 5, 6, 7, 8, 9) +
                       u8(P_ADD_ARRAY, 0, P_ADD_ARRAY, 0xFD, P_ADD_NULL_ARRAY, 4, P_DRAW) +
                       u8(P_INIT, P_MAKE, P_DRAW_DIRECT, P_ADD_ARRAY, 1) + tames(0, 0, 0) +
                       u8(P_COLOUR) + tames(256, 0, 0) + u8(P_DRAW, P_COLOUR) +
                       tames(256, 0, 0) + u8(P_MAKE))
    seeds["raw"] = (u8(RAW_MODE, P_ADD_XYZ) + raws(math.nan, -0.0, math.inf) +
                    u8(P_ADD_ARRAY, 2) + raws(5e-324, -1e308, 1, -math.inf, 0, 2) +
                    u8(P_DRAW_DIRECT, P_ADD_COPY) + raws(-math.nan, 0, 0) + u8(P_MAKE))
    return seeds


# ---------------------------------------------------------------- spring

(SP_SET_LENGTH, SP_SCALE_LENGTH, SP_SET_QUALITY, SP_SET_TYPE, SP_SET_TYPE2, SP_SHADED, SP_MAKE,
 SP_DRAW_DIRECT, SP_DRAW, SP_REBUILD) = range(10)
SCHEMATIC = 8
HUGE = 0xF0  # a turns or second-type byte from here picks a value beyond the caps


def spring_args(wire=0.1, radius=1, aux=1, length=5, turns=3, start=0):
    # turns is read as byte % 12 - 3
    return tames(wire, radius, aux, length) + u8(turns + 3) + tames(start)


def spring_draws():
    return u8(SP_MAKE, SP_DRAW_DIRECT, SP_DRAW)


def spring_seeds():
    seeds = {}
    seeds["compression"] = (u8(TAME) + spring_args() + spring_draws() +
                            u8(SP_SET_TYPE2, 1, SP_SET_LENGTH) + tames(6) + spring_draws() +
                            u8(SP_SHADED, 0, SP_SCALE_LENGTH) + tames(0.5) + spring_draws() +
                            u8(SP_SET_TYPE2, SCHEMATIC + 1, SP_SET_LENGTH) + tames(4) +
                            spring_draws())
    seeds["tension"] = (u8(TAME) + spring_args(0.2, 1.5, 0, 8, 4, 30) + u8(SP_SET_TYPE, 1) +
                        u8(SP_SET_QUALITY, 10) + spring_draws() +
                        u8(SP_SET_TYPE2, 2, SP_SET_LENGTH) + tames(9) + spring_draws() +
                        u8(SP_SHADED, 0, SP_SET_TYPE2, 3, SP_SET_LENGTH) + tames(7) +
                        spring_draws() + u8(SP_SET_TYPE2, SCHEMATIC + 2, SP_SET_LENGTH) +
                        tames(7) + spring_draws())
    seeds["edges"] = (u8(TAME) + spring_args(turns=0) + spring_draws() +
                      u8(SP_SET_TYPE, 2, SP_SET_LENGTH) + tames(1) + spring_draws() +
                      u8(SP_SET_QUALITY, 51, SP_SET_QUALITY, 9, SP_SET_TYPE, 0) +
                      u8(SP_REBUILD) + spring_args(turns=-2) + spring_draws() +
                      u8(SP_REBUILD) + tames(0.1, 1, 1, 5) + u8(HUGE) + tames(0) +
                      spring_draws() + u8(SP_SET_TYPE, 1, SP_SET_TYPE2, HUGE + 1) +
                      u8(SP_SET_LENGTH) + tames(5) + spring_draws())
    seeds["raw"] = (u8(RAW_MODE) + raws(math.nan, math.inf, 0, -1e308) + u8(3 + 3) +
                    raws(1e300) + spring_draws() + u8(SP_SET_TYPE, 1, SP_SET_LENGTH) +
                    raws(-0.0) + spring_draws())
    return seeds


def write(folder, seeds):
    path = os.path.join(HERE, "corpus", folder)
    os.makedirs(path, exist_ok=True)
    for name, data in sorted(seeds.items()):
        with open(os.path.join(path, name), "wb") as f:
            f.write(data)


if __name__ == "__main__":
    write("math", math_seeds())
    write("scene", scene_seeds())
    write("belt", belt_seeds())
    write("polyline", polyline_seeds())
    write("spring", spring_seeds())
