#include "platform/connection_impl.h"

namespace platform {

Connection::Impl::~Impl() {
    pool.forgetAll();
    while (!recordsets.empty()) recordsets.back()->close();
}

std::shared_ptr<TableImage> Connection::Impl::image(const QString& table) {
    std::weak_ptr<TableImage>& known = images[table.toCaseFolded()];
    if (auto image = known.lock()) return image;
    auto image = std::make_shared<TableImage>(database, pool, table);
    known = image;
    return image;
}

Connection::Connection() = default;

Connection::~Connection() = default;

void Connection::Open(const QString& path, Durability durability) {
    if (impl_) throw Failure(QStringLiteral("Databasen är redan öppen."));
    impl_ = std::make_unique<Impl>(path, durability);
}

void Connection::Close() {
    if (!impl_) throw Failure(QStringLiteral("Databasen är inte öppen."));
    impl_.reset();
}

bool Connection::IsOpen() const { return impl_ != nullptr; }

QString Connection::Path() const { return impl_ ? impl_->path : QString(); }

} // namespace platform
