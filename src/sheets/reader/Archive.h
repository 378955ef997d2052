// The parts of a zip archive that is in memory.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct zip;

class Archive {
  public:
    // Refuses what is no whole archive.
    explicit Archive(std::string_view bytes);

    bool has(const std::string& part) const;
    // Whether the name of a part has this in it.
    bool hasLike(std::string_view piece) const;
    // Unpacks a part piece by piece; upper and lower case make no difference in its name. False when there is
    // no such part. Refuses one that is damaged, needs a password or unpacks to too much.
    bool read(const std::string& part, const std::function<void(std::string_view)>& take) const;

  private:
    std::unique_ptr<zip, void (*)(zip*)> zip_;
    mutable std::size_t unpacked_ = 0; // bytes, of all parts
};
