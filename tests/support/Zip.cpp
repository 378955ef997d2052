#include "support/Zip.h"

#include <zip.h>

QByteArray zipped(const QList<std::pair<QByteArray, QByteArray>>& parts) {
    auto* bytes = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_source_keep(bytes);
    auto* archive = zip_open_from_source(bytes, ZIP_TRUNCATE, nullptr);
    for (const auto& [name, content] : parts)
        zip_file_add(
            archive, name.constData(),
            zip_source_buffer(archive, content.constData(), static_cast<std::size_t>(content.size()), 0), 0);
    zip_close(archive);
    zip_source_open(bytes);
    zip_source_seek(bytes, 0, SEEK_END);
    QByteArray file(zip_source_tell(bytes), '\0');
    zip_source_seek(bytes, 0, SEEK_SET);
    zip_source_read(bytes, file.data(), static_cast<std::size_t>(file.size()));
    zip_source_close(bytes);
    zip_source_free(bytes);
    return file;
}

QByteArray unzipped(const QByteArray& archive, const char* part) {
    auto* bytes =
        zip_source_buffer_create(archive.constData(), static_cast<std::size_t>(archive.size()), 0, nullptr);
    auto* opened = zip_open_from_source(bytes, ZIP_RDONLY, nullptr);
    QByteArray content;
    if (auto* file = zip_fopen(opened, part, 0)) {
        content.resize(1 << 20);
        content.resize(zip_fread(file, content.data(), static_cast<std::size_t>(content.size())));
        zip_fclose(file);
    }
    zip_discard(opened);
    return content;
}
