#include "album.h"
#include "platform/screens/frmQuestion.h"

namespace vellumark::test {

void ShootPlatformScreens(const Album& album) {
    frmQuestion question({"Sort Generic Values for this Category in Ascending or Descending order?",
                          "&Ascending", "&Descending", "&Cancel"},
                         nullptr);
    album.Take("frmQuestion", question);
}

}  // namespace vellumark::test
