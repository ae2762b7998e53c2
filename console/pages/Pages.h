#pragma once

namespace quillon
{

class ConsolePage;
class PageKit;

// The four work modes. Each builds its fields and strips into an empty page, with the ways to and from the device and to the
// console's own windows. What is built belongs to the page. Once each.
void buildMobilePage(PageKit& kit);
void buildLivePage(PageKit& kit);
void buildEasyPage(PageKit& kit);
void buildProPage(PageKit& kit);

} // namespace quillon
