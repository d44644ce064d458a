// The raw register editor's layout, shared by its own template (8224) and by the template of every
// generic chip page: a grid of the four per-colour registers, red, green and blue rows, each cell the
// register's two bytes (low byte first) and where the host keeps them. "A" and "B" in a cell's
// address mean record A and record B. Controls the host's register kind shows only on some chips
// (the fourth register, the CFG1 caption, the preset) start hidden.
#pragma once

#define RV_RAW_WIDTH 339
#define RV_RAW_HEIGHT 97
#define RV_RAW_COLUMN_1 7
#define RV_RAW_COLUMN_2 89
#define RV_RAW_COLUMN_3 171
#define RV_RAW_COLUMN_4 253
#define RV_RAW_CAPTION_Y 7
#define RV_RAW_RED_Y 22
#define RV_RAW_GREEN_Y (RV_RAW_RED_Y + RV_ROW)
#define RV_RAW_BLUE_Y (RV_RAW_RED_Y + 2 * RV_ROW)
#define RV_RAW_BUTTON_Y 76

#define RV_RAW_EDIT(id, x, y, style) EDITTEXT id, x, y, 18, 12, ES_AUTOHSCROLL | WS_TABSTOP style
// A register cell: name, low byte, high byte, address.
#define RV_RAW_CELL(name, nameId, lowId, highId, address, addressId, x, y)                                  \
    RV_LABEL(name, nameId, x, y, 14)                                                                        \
    RV_RAW_EDIT(lowId, x + 15, y, )                                                                         \
    RV_RAW_EDIT(highId, x + 35, y, )                                                                        \
    RV_LABEL(address, addressId, x + 55, y, 24)
// The fourth register, hidden until the register kind asks for it; record B is its only home.
#define RV_RAW_HIDDEN_CELL(name, nameId, lowId, highId, x, y)                                               \
    LTEXT name, nameId, x, y + 2, 14, 9, NOT WS_VISIBLE                                                     \
    RV_RAW_EDIT(lowId, x + 15, y, | NOT WS_VISIBLE)                                                         \
    RV_RAW_EDIT(highId, x + 35, y, | NOT WS_VISIBLE)

// windres gives every template with a caption a title bar, which a child page must not have: the
// style, after the caption, takes it away again.
#define RV_RAW_REGISTER_TEMPLATE(templateId, caption)                                                       \
    templateId DIALOGEX 0, 0, RV_RAW_WIDTH, RV_RAW_HEIGHT                                                   \
    CAPTION caption                                                                                         \
    STYLE RV_PAGE_STYLE | NOT WS_CAPTION                                                                    \
    EXSTYLE RV_PAGE_EXSTYLE                                                                                 \
    RV_PAGE_FONT                                                                                            \
    BEGIN                                                                                                   \
        RV_LABEL("Register 1", 20607, RV_RAW_COLUMN_1, RV_RAW_CAPTION_Y, 78)                                \
        LTEXT "Register 1", 20616, RV_RAW_COLUMN_1, RV_RAW_CAPTION_Y + 2, 78, 9, NOT WS_VISIBLE            \
        RV_RAW_CELL("R1", 20601, 8543, 8068, "2, 3", 20604, RV_RAW_COLUMN_1, RV_RAW_RED_Y)                  \
        RV_RAW_CELL("G1", 20602, 8069, 8070, "4, 5", 20605, RV_RAW_COLUMN_1, RV_RAW_GREEN_Y)                \
        RV_RAW_CELL("B1", 20603, 8544, 8072, "6, 7", 20606, RV_RAW_COLUMN_1, RV_RAW_BLUE_Y)                 \
        RV_LABEL("Register 2", 20014, RV_RAW_COLUMN_2, RV_RAW_CAPTION_Y, 78)                                \
        RV_RAW_CELL("R2", 8552, 8545, 8074, "8, 9", 8558, RV_RAW_COLUMN_2, RV_RAW_RED_Y)                    \
        RV_RAW_CELL("G2", 8553, 8075, 8076, "10, 11", 8559, RV_RAW_COLUMN_2, RV_RAW_GREEN_Y)                \
        RV_RAW_CELL("B2", 8554, 8077, 8078, "12, 13", 8560, RV_RAW_COLUMN_2, RV_RAW_BLUE_Y)                 \
        RV_LABEL("Register 3", 20015, RV_RAW_COLUMN_3, RV_RAW_CAPTION_Y, 78)                                \
        RV_RAW_CELL("R3", 8568, 8079, 8080, "14, 15", 8567, RV_RAW_COLUMN_3, RV_RAW_RED_Y)                  \
        RV_RAW_CELL("G3", 8571, 8081, 8082, "A0, A1", 8570, RV_RAW_COLUMN_3, RV_RAW_GREEN_Y)                \
        RV_RAW_CELL("B3", 8574, 8083, 8084, "A2, A3", 8573, RV_RAW_COLUMN_3, RV_RAW_BLUE_Y)                 \
        LTEXT "Register 4 (record B)", 20016, RV_RAW_COLUMN_4, RV_RAW_CAPTION_Y + 2, 80, 9, NOT WS_VISIBLE \
        RV_RAW_HIDDEN_CELL("R4", 8569, 8085, 8086, RV_RAW_COLUMN_4, RV_RAW_RED_Y)                          \
        RV_RAW_HIDDEN_CELL("G4", 8575, 8087, 8088, RV_RAW_COLUMN_4, RV_RAW_GREEN_Y)                        \
        RV_RAW_HIDDEN_CELL("B4", 8577, 8089, 8090, RV_RAW_COLUMN_4, RV_RAW_BLUE_Y)                         \
        PUSHBUTTON "Preset", 20013, RV_RAW_COLUMN_1, RV_RAW_BUTTON_Y, 60, 14, WS_TABSTOP | NOT WS_VISIBLE  \
        RV_BUTTON("Read again", 8025, RV_RAW_WIDTH - 134, RV_RAW_BUTTON_Y, 62)                              \
        RV_BUTTON("Restore", 8026, RV_RAW_WIDTH - 69, RV_RAW_BUTTON_Y, 62)                                  \
    END
