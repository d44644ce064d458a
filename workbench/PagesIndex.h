// The index page of a folder of page pictures, for looking at the pages side by side in a browser.
#pragma once

#include <string>
#include <vector>

struct PagePicture {
    std::string label;     // "47/138"
    std::string className; // "CRegvane_SM16159"
    std::string modelName; // "SM16159"
    std::string file;      // "00047-138-CRegvane_SM16159.png"; empty when the type gave no page
    int width = 0;
    int height = 0;
};

// "00047-CRegvaneMbi5153.png", "00047-138-CRegvane_SM16159.png": sorted by type in a file listing.
std::string PictureFileName(int chipType, int subType, const std::string& className);

std::string PagesIndexHtml(const std::vector<PagePicture>& pictures);
