#include "http/ContentType.h"

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

constexpr const char* html = "text/html; charset=utf-8";

struct Sample {
    const char* path;
    const char* type;
};

class ContentTypeTest : public testing::TestWithParam<Sample>
{
};

TEST_P(ContentTypeTest, FollowsTheTextBehindTheLastDot)
{
    EXPECT_EQ(contentTypeOf(QString::fromLatin1(GetParam().path)), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ContentTypeTest,
    testing::Values(Sample{"/favicon.ico", "image/x-icon"}, Sample{"/a.png", "image/png"},
                    Sample{"/a.jpeg", "image/jpeg"}, Sample{"/a.jpg", "image/jpeg"},
                    Sample{"/app.js", "text/javascript"}, Sample{"/app.css", "text/css"},
                    Sample{"/a.min.js", "text/javascript"}, Sample{"/a.js.map", html},
                    Sample{"/a.PNG", html}, Sample{"/index.html", html}, Sample{"/a.svg", html},
                    Sample{"/a", html}, Sample{"/a.", html}, Sample{"/dir.js/file", html},
                    Sample{"/.png", "image/png"}, Sample{"", html}));

} // namespace
} // namespace kor::veltrano::daemons
