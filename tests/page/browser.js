// Opens pages in the browser, light and dark: no violation by axe, every formula drawn, nothing on the console; and
// takes pictures of some. Arguments: folder for pictures, names to take (with commas), pages.
const fs = require('fs');
const path = require('path');
const puppeteer = require('puppeteer-core');
const axe = fs.readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');

// What axe and the browser find wrong with the page as it stands.
async function faultsOf(page) {
  await page.evaluate(axe);
  const found = await page.evaluate(() => axe.run(document, {resultTypes: ['violations']}));
  const faults = found.violations.map((v) => `${v.id}: ${v.nodes[0].html.slice(0, 120)}`);
  const bare = await page.evaluate(() => [...document.querySelectorAll('math')].filter((m) => {
    const place = m.getBoundingClientRect();
    return place.width < 2 || place.height < 2;
  }).length);
  if (bare) faults.push(`${bare} formulas that aren't drawn`);
  // Without a font for mathematics the browser draws brackets of one line's height around a matrix.
  const small = await page.evaluate(() => [...document.querySelectorAll('math mtable')].filter((table) =>
    table.previousElementSibling.getBoundingClientRect().height < 0.9 * table.getBoundingClientRect().height).length);
  if (small) faults.push(`${small} brackets that are too small`);
  return faults;
}

async function picture(page, folder, name) {
  await page.setViewport({width: 900, height: 1000});
  for (const scheme of ['light', 'dark']) {
    await page.emulateMediaFeatures([{name: 'prefers-color-scheme', value: scheme}]);
    await page.screenshot({path: path.join(folder, `${name}-${scheme}.png`), fullPage: true});
  }
  await page.pdf({path: path.join(folder, `${name}.pdf`), format: 'A4'});
}

async function main([folder, names, ...files]) {
  const browser = await puppeteer.launch({executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu']});
  const wanted = names.split(',');
  let faults = 0;
  for (const file of files) {
    const page = await browser.newPage();
    const said = [];
    page.on('console', (message) => said.push(message.text()));
    page.on('pageerror', (error) => said.push(String(error)));
    await page.goto('file://' + path.resolve(file));
    for (const scheme of ['light', 'dark']) {
      await page.emulateMediaFeatures([{name: 'prefers-color-scheme', value: scheme}]);
      said.push(...await faultsOf(page));
    }
    for (const fault of said) console.log(`${path.basename(file)}: ${fault}`);
    faults += said.length;
    const name = path.basename(file, '.html');
    if (wanted.includes(name)) await picture(page, folder, name);
    await page.close();
  }
  await browser.close();
  console.log(`${files.length} pages in the browser, ${faults} faults`);
  process.exit(faults ? 1 : 0);
}

main(process.argv.slice(2));
