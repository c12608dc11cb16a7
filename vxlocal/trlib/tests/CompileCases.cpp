// Uses of the public headers that must or must not compile, chosen by a macro.
#include <kvparser.h>
#include <tr.h>

#ifdef INNER_HEADER
#include <trtools.h>
#endif

std::string use(const VXLOCAL::Translator& translator) {
#if defined(WRONG_ARGUMENT)
    return translator.tr("%d", "text");
#elif defined(MISSING_ARGUMENT)
    return translator.tr("%d of %s", 42);
#else
    return translator.tr("%d of %s, 100 %%", 42, "text");
#endif
}
