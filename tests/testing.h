// Headers that many tests need; this is the precompiled header of the rooms' tests.
#pragma once

#include <algorithm>
#include <array>
#include <deque>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>
