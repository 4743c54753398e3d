"""Pictures of a screen, and how well a text in them can be read."""

import collections

from desktop import tool


def luminance(colour):
    """How light a colour is, from 0 to 1, as the contrast of web pages is computed."""
    def linear(channel):
        share = channel / 255
        return share / 12.92 if share <= 0.04045 else ((share + 0.055) / 1.055) ** 2.4
    red, green, blue = (linear(channel) for channel in colour)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def contrast(one, other):
    light, dark = sorted((luminance(one), luminance(other)), reverse=True)
    return (light + 0.05) / (dark + 0.05)


class Picture:
    """The pixels of a window, or of the whole screen, as they are now."""

    def __init__(self, file, window="root"):
        tool("import", "-window", window, str(file))
        self.width = int(tool("identify", "-format", "%w", str(file)))
        self.bytes = tool("convert", str(file), "-depth", "8", "rgb:-")
        self.height = len(self.bytes) // (3 * self.width)

    def pixel(self, x, y):
        at = 3 * (y * self.width + x)
        return tuple(self.bytes[at:at + 3])

    def colours(self, left, top, width, height):
        """The colours of a place on the screen, and how often each is there."""
        right, bottom = min(left + width, self.width), min(top + height, self.height)
        return collections.Counter(self.pixel(x, y) for y in range(max(top, 0), bottom)
                                   for x in range(max(left, 0), right))

    def text_contrast(self, *place):
        """The contrast of what is written there: the ground is what most of the place has, the
        text what stands out most from it. 1 where nothing is written."""
        colours = self.colours(*place)
        ground = colours.most_common(1)[0][0]
        return max(contrast(ground, colour) for colour in colours)
