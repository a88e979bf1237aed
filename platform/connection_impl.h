#pragma once

#include "platform/cursor.h"

#include <map>

namespace platform {

struct Connection::Impl {
    Impl(const QString& filePath, Durability durability)
        : path(filePath)
        , database(filePath, durability) {}

    /// Closes the recordsets that are still open.
    ~Impl();
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    /// The image of the table, shared by all cursors that are open on it. @throws Failure if unknown
    std::shared_ptr<TableImage> image(const QString& table);

    QString path;
    Database database;
    CellPool pool;
    std::map<QString, std::weak_ptr<TableImage>> images;
    std::vector<Recordset::Impl*> recordsets;
};

struct Recordset::Impl {
    ~Impl() {
        listeners.clear(); // nobody is left to hear of it
        close();
    }

    /// The open cursor. @throws Failure if there is none
    Cursor& open() const;
    void close();
    /// Runs an operation and tells the listener, also of what a failed one has changed.
    template <class Operation>
    void act(Operation operation);
    void tell();

    Connection::Impl* connection = nullptr;
    std::unique_ptr<Cursor> cursor;
    std::map<const void*, std::function<void()>> listeners;
    bool isTelling = false;
};

} // namespace platform
