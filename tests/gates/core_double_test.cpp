// The gate suite runs once with the real core module and once under each
// double; this checks that the double named by the environment is the one
// that answers.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/core_double.h"
#include "tavcore.h"

TEST(CoreDouble, AnswersAsConfigured) {
    const char* which = std::getenv("TAV_CORE_DOUBLE");
    int size = -1;
    TavStatus st = tavGetMaxCacheSizeB(&size);
    if (!which) {
        EXPECT_EQ(tavtest::core_cache_queries(), -1);
        EXPECT_EQ(st, tavOk);
        EXPECT_GT(size, 0);
        return;
    }
    const std::string w = which;
    EXPECT_GE(tavtest::core_cache_queries(), 1);
    if (w == "cache0") {
        EXPECT_EQ(size, 0);
    } else if (w == "tiny") {
        EXPECT_EQ(size, 4096);
    } else if (w == "fail") {
        EXPECT_NE(st, tavOk);
    }
}

TEST(CoreDouble, FeatureAndLineQueries) {
    int line = 0;
    tav_get_cache_line_size(&line);
    EXPECT_GE(line, 32);
    EXPECT_NE(ownGetFeature(0x10008000), 0);
    EXPECT_NE(ownGetFeature(0x20000000), 0);
    EXPECT_NE(ownGetFeature(0), 0);
}
