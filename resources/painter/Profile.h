#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>

namespace pedl::skin {

/// The outline of a turned part: height over radius, straight between the points given.
class Profile {
public:
    struct Step {
        float radius, height;
    };

    Profile(std::initializer_list<Step> steps)
        : density_(static_cast<float>(kEntries - 2) / (steps.end() - 1)->radius) {
        const Step* next = steps.begin() + 1;
        for (std::size_t i = 0; i < kEntries; ++i) {
            const float radius = static_cast<float>(i) / density_;
            while (next + 1 != steps.end() && next->radius < radius)
                ++next;
            const Step& last = *(next - 1);
            const float t = (radius - last.radius) / (next->radius - last.radius);
            heights_[i] = last.height + (next->height - last.height) * std::min(t, 1.0F);
        }
    }

    float operator()(float radius) const {
        const float place = std::min(radius * density_, static_cast<float>(kEntries - 2));
        const auto index = static_cast<std::size_t>(place);
        return heights_[index] +
               (heights_[index + 1] - heights_[index]) * (place - static_cast<float>(index));
    }

private:
    static constexpr std::size_t kEntries = 2048;
    float density_; // entries per pixel
    std::array<float, kEntries> heights_{};
};

} // namespace pedl::skin
