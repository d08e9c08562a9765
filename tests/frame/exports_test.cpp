// The built module against its catalogue: every name exported and nothing
// else, stubs jumping through one constant table in alphabetical order, and
// each shared group running one implementation.
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

struct Entry {
    std::string name, impl;
};

std::vector<Entry> catalogue() {
    std::vector<Entry> out;
    std::ifstream in(TAV_EXPORTS_TXT);
    Entry e;
    while (in >> e.name >> e.impl) out.push_back(e);
    return out;
}

std::set<std::string> dynamic_symbols(const char* lib) {
    std::set<std::string> out;
    std::string cmd = std::string("nm -D --defined-only ") + lib;
    FILE* p = popen(cmd.c_str(), "r");
    char line[512];
    while (p && fgets(line, sizeof line, p)) {
        char addr[64], type[8], name[400];
        if (sscanf(line, "%63s %7s %399s", addr, type, name) == 3) out.insert(name);
    }
    if (p) pclose(p);
    return out;
}

// A stub is `lea slot(%rip), %r11; jmp *(%r11)`: decode the slot it uses.
const void* const* slot_of(const void* stub) {
    const unsigned char* c = static_cast<const unsigned char*>(stub);
    static const unsigned char lea[] = {0x4c, 0x8d, 0x1d};
    static const unsigned char jmp[] = {0x41, 0xff, 0x23};
    if (std::memcmp(c, lea, 3) != 0 || std::memcmp(c + 7, jmp, 3) != 0) return nullptr;
    std::int32_t disp;
    std::memcpy(&disp, c + 3, 4);
    return reinterpret_cast<const void* const*>(c + 7 + disp);
}

TEST(Exports, DynamicSymbolsAreExactlyTheCatalogue) {
    std::set<std::string> expected;
    for (const Entry& e : catalogue()) expected.insert(e.name);
    ASSERT_FALSE(expected.empty());
    std::set<std::string> actual = dynamic_symbols(TAV_LIB_PATH);
    for (const std::string& n : expected) EXPECT_TRUE(actual.count(n)) << "missing export " << n;
    for (const std::string& n : actual) EXPECT_TRUE(expected.count(n)) << "unlisted export " << n;
}

TEST(Exports, CoreModuleExportsItsSixOperations) {
    std::set<std::string> actual = dynamic_symbols(TAV_CORE_PATH);
    const std::set<std::string> six = {"tavMalloc", "tavMalloc_L", "tavFree", "tavGetMaxCacheSizeB",
                                       "tav_get_cache_line_size", "ownGetFeature"};
    EXPECT_EQ(actual, six);
}

TEST(Exports, StubsJumpThroughOneTableInNameOrder) {
    void* lib = dlopen(TAV_LIB_PATH, RTLD_NOW);
    ASSERT_NE(lib, nullptr) << dlerror();
    std::vector<Entry> entries = catalogue();
    std::map<std::string, const void*> impl_of_head;
    const void* const* prev = nullptr;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& e = entries[i];
        if (i) {
            EXPECT_LT(std::strcmp(entries[i - 1].name.c_str(), e.name.c_str()), 0);
        }
        void* stub = dlsym(lib, e.name.c_str());
        ASSERT_NE(stub, nullptr) << e.name;
        const void* const* slot = slot_of(stub);
        ASSERT_NE(slot, nullptr) << e.name << " is not a two-instruction stub";
        if (prev) {
            EXPECT_EQ(slot, prev + 1) << e.name << " is not in the next slot";
        }
        prev = slot;
        EXPECT_NE(*slot, nullptr);
        EXPECT_NE(*slot, stub);
        // Every member of a shared group lands on its head's implementation,
        // and distinct implementations land on distinct code.
        auto [it, fresh] = impl_of_head.emplace(e.impl, *slot);
        EXPECT_EQ(it->second, *slot) << e.name << " should share code with " << e.impl;
    }
    std::set<const void*> distinct;
    for (auto& [head, code] : impl_of_head) distinct.insert(code);
    EXPECT_EQ(distinct.size(), impl_of_head.size()) << "two groups resolve to one address";
    dlclose(lib);
}

TEST(Exports, TableIsReadOnlyAfterLoad) {
    void* lib = dlopen(TAV_LIB_PATH, RTLD_NOW);
    ASSERT_NE(lib, nullptr);
    const void* const* slot = slot_of(dlsym(lib, "taviGetLibVersion"));
    ASSERT_NE(slot, nullptr);
    // The table lives in relocation-read-only memory: find its mapping's permissions.
    std::ifstream maps("/proc/self/maps");
    std::string line;
    bool found = false;
    const auto addr = reinterpret_cast<std::uintptr_t>(slot);
    while (std::getline(maps, line)) {
        std::uintptr_t lo, hi;
        char perms[8];
        if (sscanf(line.c_str(), "%lx-%lx %7s", &lo, &hi, perms) == 3 && addr >= lo && addr < hi) {
            found = true;
            EXPECT_EQ(perms[1], '-') << "table mapping is writable: " << line;
        }
    }
    EXPECT_TRUE(found);
    dlclose(lib);
}

// Loading runs nothing of ours: the only start-up entry is the runtime's own
// (one pointer in .init_array), and there are no legacy constructors.
TEST(Exports, NothingRunsAtLoad) {
    std::ifstream f(TAV_LIB_PATH, std::ios::binary);
    std::vector<char> file((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    ASSERT_GT(file.size(), sizeof(Elf64_Ehdr));
    Elf64_Ehdr eh;
    std::memcpy(&eh, file.data(), sizeof eh);
    std::vector<Elf64_Shdr> sh(eh.e_shnum);
    std::memcpy(sh.data(), file.data() + eh.e_shoff, sizeof(Elf64_Shdr) * eh.e_shnum);
    const char* names = file.data() + sh[eh.e_shstrndx].sh_offset;
    std::size_t init_entries = 0;
    for (const Elf64_Shdr& s : sh) {
        const std::string n = names + s.sh_name;
        if (n == ".init_array") init_entries = s.sh_size / 8;
        EXPECT_NE(n, ".ctors");
    }
    EXPECT_LE(init_entries, 1u);
}

}  // namespace
