// SPDX-License-Identifier: MIT
#include "base/WeakReference.h"

#include <gtest/gtest.h>

#include <optional>

namespace vtx {
namespace {

TEST(WeakReference, refers_to_its_object_until_that_has_gone) {
    std::optional<ObservableObject> object(std::in_place);
    const WeakReference reference(*object);
    EXPECT_EQ(reference.get(), &*object);
    object.reset();
    EXPECT_EQ(reference.get(), nullptr);
    object.emplace();
    EXPECT_EQ(reference.get(), nullptr);  // another one in the same place
}

TEST(WeakReference, may_refer_to_nothing) {
    EXPECT_EQ(WeakReference<ObservableObject>().get(), nullptr);
}

}  // namespace
}  // namespace vtx
