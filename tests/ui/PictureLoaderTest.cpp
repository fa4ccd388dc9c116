#include "ui/PictureLoader.h"

#include "platform/CurlHttpClient.h"
#include "support/Bytes.h"
#include "support/LoopbackServer.h"
#include "ui/PictureDecoder.h"
#include "ui/WindowFixture.h"

#include <map>

namespace veridane::ui {
namespace {

using namespace veridane::test;
using namespace std::string_literals;

std::string encoded(const QSize& size, const char* format) {
    return pictureFile(size, Qt::darkGreen, format);
}

/// A black pixel on a screen of that size; the toolkit reads this format but writes none.
std::string gif(std::size_t width, std::size_t height) {
    const auto number = [](std::size_t value) {
        return std::string{static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
    };
    return "GIF89a" + number(width) + number(height) + "\x80\0\0\0\0\0\xff\xff\xff"s +
           ",\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;"s;
}

/// With another part before those that hold the pixels. Nobody gets to its checksum.
std::string withPart(std::string png, const std::string& name, const std::string& contents) {
    constexpr std::size_t behindHeader = 33;
    const Bytes size = bigEndian({contents.size()});
    return png.insert(behindHeader, std::string(size.begin(), size.end()) + name + contents +
                                        std::string(4, '\0'));
}

/// Its last scan again and again, until there are so many.
std::string withScans(std::string jpeg, int count) {
    const std::string marker = "\xff\xda";
    const auto end = jpeg.size() - 2;
    const std::string last = jpeg.substr(jpeg.rfind(marker), end - jpeg.rfind(marker));
    for (auto scans = occurrences(jpeg, marker); scans < count; ++scans)
        jpeg.insert(end, last);
    return jpeg;
}

TEST(PictureDecoder, PicturesOfTheWebAreMadeAsSmallAsNeededAndOddOnesLeftAlone) {
    const QSize none(0, 0), full(96, 96);
    const std::string png = encoded({200, 200}, "png"), jpeg = encoded({64, 64}, "jpeg");
    const std::string huge = "\x7f\xff\xff\xff\x7f\xff\xff\xff";
    const std::tuple<const char*, std::string, QSize> cases[] = {
        {"PNG", png, full},
        {"JPEG", encoded({200, 200}, "jpeg"), full},
        {"GIF", gif(200, 200), full},
        {"a small one", encoded({7, 5}, "png"), {7, 5}},
        {"a wide one", encoded({400, 200}, "png"), {192, 96}},
        {"the largest", encoded({2048, 2048}, "png"), full},
        {"too wide", encoded({2049, 1}, "png"), none},
        {"too high", encoded({1, 2049}, "jpeg"), none},
        {"a small frame on a large screen", gif(2049, 1), none},
        {"billions of pixels", std::string(png).replace(16, 8, huge), none},
        {"damaged text", withPart(png, "zTXt", "k\0\0damaged"s), full},
        {"a part without an end", withPart(png, "tEXt", "").replace(33, 4, "\xff\xff\xff\xff"),
         none},
        {"as many scans as there may be", withScans(jpeg, 100), {64, 64}},
        {"too many scans", withScans(jpeg, 101), none},
        {"a vector",
         R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><image )"
         R"(href="file:///etc/passwd" width="9" height="9"/></svg>)",
         none},
        {"an unusual format", encoded({9, 9}, "bmp"), none},
    };
    for (const auto& [what, bytes, size] : cases)
        EXPECT_EQ(decodedPicture(bytesOf(bytes)).size(), size) << what;
}

/// A loader with a real client, and a queue that is the main thread.
class PictureLoaderTest : public ::testing::Test {
protected:
    void waitForPictures(std::size_t count) {
        queue.drainUntil([&] { return pictures.size() >= count; });
    }
    void endAll() {
        loader.reset();
        client.reset();
        queue.drain();
    }

    DrainedQueue queue;
    std::vector<QImage> pictures;
    std::function<void(const QImage&)> keep = [this](const QImage& picture) {
        pictures.push_back(picture);
    };
    const std::string png = encoded({512, 512}, "png");
    std::optional<CurlHttpClient> client{std::in_place};
    std::optional<PictureLoader> loader{std::in_place, *client, queue};
};

TEST_F(PictureLoaderTest, GivesThePicturesOfSuccessfulAnswersAlone) {
    const std::map<std::string, std::string> answers = {
        {"/404", answerText(404, png)},
        {"/too-large", answerText(200, png + std::string(4 << 20, '\0'))},
        {"/cut-off", "HTTP/1.1 200 OK\r\nContent-Length: 9999\r\n\r\n" + png},
        {"/broken", answerText(200, png.substr(0, 40))},
        {"/moved", answerText(302, "", "Location: /good\r\n")},
    };
    LoopbackServer server([&](const auto& request, auto& connection) {
        const auto answer = answers.find(request.target);
        connection.send(answer == answers.end() ? answerText(200, png) : answer->second);
        connection.close();
    });
    loader->load("two words", keep);
    loader->load("file:///etc/passwd", keep);
    for (const auto& answer : answers)
        loader->load(server.url(answer.first), keep);
    for (int i = 0; i < 20; ++i) // more than are fetched at once, and behind those that fail
        loader->load(server.url("/good"), keep);
    waitForPictures(21);
    endAll();
    EXPECT_EQ(pictures.size(), 21u);
    EXPECT_EQ(pictures.front().pixelColor(4, 4), QColor(Qt::darkGreen));
}

TEST_F(PictureLoaderTest, NothingIsGivenOnceItIsGoneWhichAPictureMayBringAbout) {
    LoopbackServer server([this](const auto& request, auto& connection) {
        if (request.target == "/silent")
            return connection.stall();
        connection.answer(200, png);
    });
    for (const bool goesWithAPicture : {false, true}) {
        client.emplace();
        loader.emplace(*client, queue);
        pictures.clear();
        for (const char* path : {"/silent", "/good", "/good", "/good"})
            loader->load(server.url(path), [&](const QImage& picture) {
                if (goesWithAPicture)
                    loader.reset();
                keep(picture);
            });
        waitForPictures(1); // the others may be anywhere on their way
        const std::size_t given = pictures.size();
        endAll();
        EXPECT_EQ(pictures.size(), given);
    }
}

} // namespace
} // namespace veridane::ui
