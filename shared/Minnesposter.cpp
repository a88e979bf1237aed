#include "shared/Minnesposter.h"

#include "platform/failure.h"
#include "platform/textfile.h"

namespace shared {

std::vector<Minnespost> LäsMinnesposter(const QString& text) {
    std::vector<Minnespost> poster;
    platform::ItemReader läsare(text);
    while (!läsare.AtEnd()) {
        const QString post = läsare.Next();
        const qsizetype likhet = post.indexOf(u'=');
        if (likhet < 0) continue;
        if (likhet > maxMinnestext || post.size() - likhet - 1 > maxMinnestext)
            throw platform::Failure(QStringLiteral("En post är för lång."));
        poster.push_back({post.left(likhet), post.mid(likhet + 1)});
    }
    return poster;
}

} // namespace shared
