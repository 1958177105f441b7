#include "parser/ObjectPool.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace Testing {

using Brisko::ObjectPool;

TEST(ObjectPool, MakesAgainWhereOneWasReleased) {
    ObjectPool<std::string> pool;
    std::string* const first = pool.make("a text that is too long to be held in place");
    pool.release(first);
    std::string* const second = pool.make(3u, 'x');
    EXPECT_EQ(static_cast<void*>(second), static_cast<void*>(first));
    EXPECT_EQ(*second, "xxx");
    pool.release(second);
}

TEST(ObjectPool, ObjectsHavePlacesOfTheirOwn) {
    ObjectPool<int> pool;
    std::set<int*> objects;
    for (int i = 0; i < 1000; ++i)
        objects.insert(pool.make(i));
    EXPECT_EQ(objects.size(), 1000u);
    int sum = 0;
    for (int* object : objects)
        sum += pool.take(object);
    EXPECT_EQ(sum, 999 * 500);
}

TEST(ObjectPool, ReleasedObjectsAreDestroyed) {
    auto counted = std::make_shared<int>(1);
    ObjectPool<std::shared_ptr<int>> pool;
    std::shared_ptr<int>* const object = pool.make(counted);
    EXPECT_EQ(counted.use_count(), 2);
    pool.release(object);
    pool.release(nullptr);
    EXPECT_EQ(counted.use_count(), 1);
}

} // namespace Testing
