#include "support/accesspoint.hpp"

#include "oruAsf.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace oru::test {
namespace {

namespace fs = std::filesystem;

std::string readAll(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// A dictionary of the files, as another program would see them; calls of the stand-in go
/// uncounted.
class Editor {
public:
    explicit Editor(const std::string &path) : path_(path)
    {
        saved_ = StandIn::get();
        StandIn::get().reset();
        if (oruAsfDictCreate(&dict_, path.c_str()) != 0)
            throw std::runtime_error("can't load " + path);
    }
    ~Editor()
    {
        oruAsfDictFree(dict_);
        StandIn::get() = saved_;
    }
    Editor(const Editor &) = delete;
    Editor &operator=(const Editor &) = delete;

    [[nodiscard]] OruAsfDict *dict() const { return dict_; }
    void save()
    {
        if (oruAsfDictSave(dict_, path_.c_str()) != 0)
            throw std::runtime_error("can't save " + path_);
    }

private:
    std::string path_;
    OruAsfDict *dict_ = nullptr;
    StandIn saved_;
};

} // namespace

AccessPoint::AccessPoint()
{
    std::string path = (fs::temp_directory_path() / "oru-test-XXXXXX").string();
    if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("can't make a folder");
    root_ = path;
    fs::create_directories(root_ + "/var");
    fs::create_directories(root_ + "/config");
    fs::create_directories(root_ + "/run/oru");
    ::setenv("ORU_ROOT", root_.c_str(), 1);
    ::setenv("ORU_LOG", "none", 1);
    restore();
}

AccessPoint::~AccessPoint()
{
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

void AccessPoint::restore()
{
    const std::string share = ORU_SOURCE_DIR "/share";
    for (const char *path : {kWsm, kWsmFactory}) write(path, readAll(share + "/wsmDefaults.orig"));
    for (const char *path : {kAa, kAaFactory}) write(path, readAll(share + "/1x.conf.orig"));
    write(kRadarList, readAll(share + "/wsmSavedRadarDetectList"));
}

std::string AccessPoint::read(const std::string &path) const
{
    return readAll(root_ + path);
}

void AccessPoint::write(const std::string &path, const std::string &text) const
{
    std::ofstream file(root_ + path, std::ios::binary | std::ios::trunc);
    file << text;
    if (!file.flush()) throw std::runtime_error("can't write " + path);
}

void AccessPoint::remove(const std::string &path) const
{
    fs::remove(root_ + path);
}

std::optional<std::string> AccessPoint::value(const std::string &path, const std::string &key) const
{
    const Editor editor(path);
    const char *text = nullptr;
    if (oruAsfDictGetString(editor.dict(), key.c_str(), &text, 0) != 0 || text == nullptr)
        return {};
    return text;
}

void AccessPoint::set(const std::string &path, const std::string &key,
                      const std::string &value) const
{
    Editor editor(path);
    oruAsfDictSetString(editor.dict(), key.c_str(), value.c_str());
    editor.save();
}

void AccessPoint::setDelimited(const std::string &path, const std::string &key,
                               const std::string &value) const
{
    Editor editor(path);
    oruAsfDictSetDelimitedString(editor.dict(), key.c_str(), value.c_str());
    editor.save();
}

void AccessPoint::unset(const std::string &path, const std::string &key) const
{
    Editor editor(path);
    oruAsfDictSetString(editor.dict(), key.c_str(), nullptr);
    editor.save();
}

std::string AccessPoint::everything() const
{
    std::string all;
    for (const char *path : {kWsm, kAa, kWsmFactory, kAaFactory, kRadarList})
        all += std::string(path) + "\n" + read(path);
    return all;
}

void AccessPointTest::TearDown()
{
    EXPECT_EQ(standIn.openDicts(), expectedDicts_) << "dictionaries left open";
    EXPECT_EQ(standIn.openConnections(), 0) << "connections left open";
    EXPECT_EQ(standIn.openElements(), 0) << "elements left";
}

void expectLogged(int32_t level, const std::vector<std::string> &texts, const char *file, int line)
{
    StandIn &standIn = StandIn::get();
    EXPECT_EQ(standIn.logTexts(), texts) << file << ":" << line;
    for (const LogLine &log : standIn.logs) {
        EXPECT_EQ(log.level, level) << file << ":" << line << ": " << log.text;
        EXPECT_EQ(log.source, "oruSdkAppsIf") << file << ":" << line;
        EXPECT_GT(log.line, 0) << file << ":" << line;
        EXPECT_EQ(log.zero, 0) << file << ":" << line;
        // What varies is a value of the format.
        EXPECT_NE(log.format, "%s") << file << ":" << line << ": " << log.text;
        for (const char *part : {"/var/", "/config/", "radio0.", "radio1."})
            EXPECT_EQ(log.format.find(part), std::string::npos)
                << file << ":" << line << ": " << log.format;
    }
    standIn.logs.clear();
}

} // namespace oru::test
