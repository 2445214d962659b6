"""Circles, arcs and ellipses of the peer by centre + cos t u + sin t v, t from a first to a last parameter."""
import math

WHOLE_TURN = 2 * math.pi
NO_SPAN = 1e-7  # a smaller one means the whole turn


def of(entity):
    """(centre, u, v, first, last)"""
    return (_ellipse if entity.dxftype() == "ELLIPSE" else _circle)(entity)


def _circle(entity):
    from ezdxf.math import Vec3
    ocs = entity.ocs()
    radius = entity.dxf.radius
    centre, u, v = (Vec3(ocs.to_wcs(p)) for p in (entity.dxf.center, (radius, 0, 0), (0, radius, 0)))
    if entity.dxftype() == "CIRCLE":
        return centre, u, v, 0, WHOLE_TURN
    first, last = math.radians(entity.dxf.start_angle), math.radians(entity.dxf.end_angle)
    span = last - first
    if not 0 < span <= WHOLE_TURN:
        span %= WHOLE_TURN
    if span <= NO_SPAN:  # from its zero angle
        return centre, u, v, 0, WHOLE_TURN
    return centre, u, v, first, first + span


def _ellipse(entity):
    from ezdxf.math import Vec3
    major = Vec3(entity.dxf.major_axis)
    minor = Vec3(entity.dxf.extrusion).normalize().cross(major).normalize(major.magnitude * entity.dxf.ratio)
    first, last = entity.dxf.start_param, entity.dxf.end_param
    span = (last - first) % WHOLE_TURN
    if abs(last - first) % WHOLE_TURN <= NO_SPAN:
        first, span = 0, WHOLE_TURN
    return Vec3(entity.dxf.center), major, minor, first, first + span
