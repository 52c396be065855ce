// A fresh store in a temporary folder for each test, and small typed helpers over the C API.
#ifndef TST_STOREFIXTURE_H
#define TST_STOREFIXTURE_H

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "velbrook/MailToolkit.h"
#include "velbrook/ServerStore.h"

// Names a data-driven row after its label ("one short" -> "one_short"), so that ctest lists readable cases.
struct RowName {
    template <class Row>
    std::string operator()(const ::testing::TestParamInfo<Row>& info) const
    {
        std::string name;
        for (const char* c = info.param.label; c && *c; ++c) {
            const bool word = std::isalnum(static_cast<unsigned char>(*c)) != 0;
            if (word)
                name += *c;
            else if (!name.empty() && name.back() != '_')
                name += '_';
        }
        while (!name.empty() && name.back() == '_')
            name.pop_back();
        return name.empty() ? "row" + std::to_string(info.index) : name;
    }
};

class StoreTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        char pattern[] = "/tmp/vbstore-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        dir = pattern;
        path = dir + "/config.db";
        server = OpenMailServer(path.c_str());
        ASSERT_NE(server, nullptr) << GetLastError();
    }
    void TearDown() override
    {
        if (server)
            CloseMailServer(server);
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }

    bool setText(const char* section, const char* name, const std::string& value)
    {
        return SetMailServerProperty(server, section, VB_TYPE_STRING, name, value.c_str(),
                                     uint32_t(value.size() + 1)) != 0;
    }
    bool setNumber(const char* section, const char* name, uint32_t value)
    {
        return SetMailServerProperty(server, section, VB_TYPE_DWORD, name, &value, 4) != 0;
    }
    // The text of a property, or "<error N>".
    std::string text(const char* section, const char* name, _tMailServer* s = nullptr)
    {
        char buffer[4096];
        uint32_t size = sizeof buffer;
        if (!GetMailServerProperty(s ? s : server, section, name, buffer, &size, nullptr))
            return "<error " + std::to_string(GetLastError()) + ">";
        return std::string(buffer, size ? size - 1 : 0);
    }
    int64_t number(const char* section, const char* name)
    {
        uint32_t value = 0, size = 4, type = 0;
        if (!GetMailServerProperty(server, section, name, &value, &size, &type))
            return -int64_t(GetLastError());
        return type == VB_TYPE_DWORD ? int64_t(value) : -1;
    }
    static std::vector<std::string> splitMulti(const char* data, uint32_t size)
    {
        std::vector<std::string> out;
        uint32_t at = 0;
        while (at < size && data[at]) {
            out.emplace_back(data + at);
            at += uint32_t(out.back().size()) + 1;
        }
        return out;
    }
    static std::string fileBytes(const std::string& p)
    {
        std::ifstream in(p, std::ios::binary);
        std::stringstream ss;
        ss << in.rdbuf();
        return ss.str();
    }

    std::string dir;
    std::string path;
    _tMailServer* server = nullptr;
};

#endif
