// What keeps somebody from reading or reaching a part of the page that stands before us, in words. Contrast and size
// of targets are those of WCAG 2.2 AA.
const faults = [];
const fault = (element, text) => faults.push(`${text}: ${element.outerHTML.slice(0, 120)}`);
const isShown = (element) => element.checkVisibility() && element.getClientRects().length > 0;
const channels = (colour) => colour.match(/[\d.]+/g).map(Number);
const luminance = (colour) => {
  const [r, g, b] = colour.map((c) => c / 255).map((c) => (c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4));
  return 0.2126 * r + 0.7152 * g + 0.0722 * b;
};
function ground(element) {
  for (let above = element; above; above = above.parentElement) {
    const [r, g, b, alpha = 1] = channels(getComputedStyle(above).backgroundColor);
    if (alpha > 0) return [r, g, b];
  }
  return [255, 255, 255];
}
function contrast(element) {
  const [light, dark] = [luminance(channels(getComputedStyle(element).color)), luminance(ground(element))].sort((a, b) => b - a);
  return (light + 0.05) / (dark + 0.05);
}

if (document.documentElement.scrollWidth > innerWidth) fault(document.documentElement, "wider than the window");
if (document.documentElement.lang !== "ja" || document.title === "") fault(document.documentElement, "no language or title");
const ids = [...document.querySelectorAll("[id]")].map((element) => element.id);
if (new Set(ids).size < ids.length) fault(document.body, "the same id twice");
let level = 0;
for (const heading of [...document.querySelectorAll("h1, h2, h3")].filter(isShown)) {
  if (Number(heading.tagName[1]) > level + 1) fault(heading, "a level of headings is left out");
  level = Number(heading.tagName[1]);
}
for (const element of [...document.querySelectorAll("#screen *")].filter(isShown)) {
  const hasText = [...element.childNodes].some((node) => node.nodeType === 3 && node.data.trim() !== "");
  const isDisabled = element.closest("button:disabled");
  if (hasText && !isDisabled && contrast(element) < 4.5) fault(element, `contrast ${contrast(element)}`);
  if (!element.matches("button, input, summary, a")) continue;
  const box = element.getBoundingClientRect();
  const isSkip = element.id === "skip"; // stands outside until it has the focus
  if (!isSkip && (box.width < 24 || box.height < 24)) fault(element, `only ${box.width} × ${box.height} px`);
  const name = element.getAttribute("aria-label") ?? element.labels?.[0]?.textContent ?? element.textContent;
  if (name.trim() === "") fault(element, "no name");
  if (element.tabIndex < 0) fault(element, "cannot be reached by keys");
  element.focus();
  const marked = element.matches(".scale input") ? element.nextElementSibling : element.closest(".button") ?? element;
  if (!isDisabled && getComputedStyle(marked).outlineStyle === "none") fault(element, "its focus does not show");
}
return faults;
