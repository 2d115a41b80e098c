// Watches two pixels of the screen and prints, as seconds since 1970, each moment at which both
// have come to show a colour after at least one did not.
//
// Usage: watch_pixels COUNT X1 Y1 X2 Y2 RRGGBB

#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

namespace {

struct Point {
    std::int16_t x;
    std::int16_t y;
};

std::uint32_t pixelAt(xcb_connection_t *connection, xcb_window_t root, Point point) {
    const auto cookie = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root, point.x, point.y,
                                      1, 1, 0xffffffff);
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
        xcb_get_image_reply(connection, cookie, nullptr), &std::free);
    if (!reply || xcb_get_image_data_length(reply.get()) < 4)
        return 0;
    const std::uint8_t *data = xcb_get_image_data(reply.get());
    return static_cast<std::uint32_t>(data[2] << 16 | data[1] << 8 | data[0]);
}

bool isClose(std::uint32_t first, std::uint32_t second) {
    for (const int shift : {0, 8, 16}) {
        const int difference =
            static_cast<int>(first >> shift & 0xff) - static_cast<int>(second >> shift & 0xff);
        if (std::abs(difference) > 6)
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 7) {
        std::fprintf(stderr, "usage: watch_pixels COUNT X1 Y1 X2 Y2 RRGGBB\n");
        return 2;
    }
    const int count = std::atoi(argv[1]);
    const auto coordinate = [&](int index) {
        return static_cast<std::int16_t>(std::atoi(argv[index]));
    };
    const std::array points{Point{coordinate(2), coordinate(3)},
                            Point{coordinate(4), coordinate(5)}};
    const auto color = static_cast<std::uint32_t>(std::strtoul(argv[6], nullptr, 16));

    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        std::fprintf(stderr, "watch_pixels: no display\n");
        return 1;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;

    bool wasShown = false;
    for (int seen = 0; seen < count;) {
        const bool isShown = isClose(pixelAt(connection, root, points[0]), color) &&
                             isClose(pixelAt(connection, root, points[1]), color);
        if (isShown && !wasShown) {
            const std::chrono::duration<double> now =
                std::chrono::system_clock::now().time_since_epoch();
            std::printf("%.6f\n", now.count());
            std::fflush(stdout);
            ++seen;
        }
        wasShown = isShown;
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    xcb_disconnect(connection);
    return 0;
}
